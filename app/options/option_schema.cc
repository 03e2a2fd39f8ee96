#include "app/options/option_schema.h"

#include "app/options/defaults.h"

namespace Vapp {

namespace {

cRef<cMapObj> any_key(cRef<cObj> const & example) {
  auto map = make_ref<cMapObj>();
  map->set("*", example);
  return map;
}

cRef<cObj> any_element(cRef<cObj> const & example) {
  auto vector = make_ref<cVectorObj>();
  vector->append(example);
  return vector;
}

cRef<cObj> text_list() {
  return cat::make(gStrList());
}

cRef<cObj> keyword_list() {
  return any_element(make_keyword("", ""));
}

cRef<cMapObj> file_group() {
  auto group = make_ref<cMapObj>();
  for (char const * key : {"path", "files", "outgrp"})
    group->set(key, cat::make(""));
  group->set("count", cat::make(0));
  return group;
}

cRef<cMapObj> attribute_record() {
  auto record = make_ref<cMapObj>();
  record->set("com", cat::make(""));
  record->set("valpre", any_key(text_list()));
  record->set("valusr", any_key(text_list()));
  // Derived, so it's made anew whatever is given; it stands in what is shown.
  record->set("val", any_key(text_list()));
  return record;
}

cRef<cMapObj> pattern_record() {
  cRef<cMapObj> record = new_unit_pattern();
  record->set("kwd", keyword_list());
  record->set("attr", any_key(cat::make("")));
  return record;
}

cRef<cMapObj> subentry_record() {
  cRef<cMapObj> record = new_subentry();
  record->set("kwd", keyword_list());
  return record;
}

// What a run and the conversions leave in the tree for others.
void add_derived(cMapObj & schema) {
  for (char const * key : {"atc_title", "atc_file", "target"})
    schema[key] = cat::make("");
  for (char const * target : {"rtf", "hlp", "htm"}) {
    cMapObj & map = schema.submap(target);
    for (char const * key : {"out_dir", "cur_vlt"})
      map.set(key, cat::make(""));
  }
  schema["htm"]["cur_helpers_dir"] = cat::make("");
  schema["rtf"]["cur_style"] = cat::make("");
  schema["hlp"]["cur_style"] = cat::make("");
  schema["hlp"]["cur_hpj"] = cat::make("");
}

template <class Fill> void for_each_record(cRef<cObj> const & records, Fill const & fill) {
  for (cIterObj it = records ? records->begin() : cIterObj(nullptr); it.valid(); it++)
    if ((*it).map())
      fill(*(*it).map());
}

void fill_from(cMapObj & record, cMapObj const & example) {
  for (cIterObj it = example.begin(); it.valid(); it++)
    if (!record.at(it.key_as_string()))
      record.set(it.key_as_string(), (*it).clone());
}

void fill_macro(cObj & object, std::string const & name) {
  gCppMacro * macro = cat::value_of<gCppMacro>(object);
  if (macro && macro->name.empty())
    macro->name = name;
}

} // namespace

cRef<cMapObj> option_schema() {
  auto schema = make_ref<cMapObj>();
  build_defaults(*schema);
  schema->set("inputfiles", any_key(file_group()));
  schema->set("attr", any_key(attribute_record()));
  schema->set("cppmacros", any_key(cat::make(gCppMacro())));
  schema->set("unitconfig", any_key(any_key(cat::make(0))));
  // Off where it is left out.
  (*schema)["ana"]["foreign_tags"] = cat::make(false);
  (*schema)["ana"]["srcpat_unit"] = any_key(pattern_record());
  (*schema)["ana"]["srcpat_subentry"] = any_key(subentry_record());
  (*schema)["hlp"]["hm_files"] = any_element(cat::make(""));
  add_derived(*schema);
  return schema;
}

cRef<cObj> schema_at(cObj const & schema, std::vector<std::string> const & path) {
  cRef<cObj> at;
  for (std::string const & key : path) {
    cObj const & map = at ? *at : schema;
    bool const vector = map.map() && map.map()->entries().is_vector();
    cRef<cObj> const known = map.at(key);
    at = vector ? map.at(0) : known ? known : map.at("*");
    if (!at)
      return nullptr;
  }
  return at;
}

void fill_records(cMapObj & options) {
  cRef<cMapObj> const group = file_group();
  group->erase("outgrp");
  cRef<cMapObj> const attribute = new_attribute("");
  attribute->erase("val");
  cRef<cObj> const ana = options.at("ana");
  for_each_record(options.at("inputfiles"), [&](cMapObj & r) { fill_from(r, *group); });
  for_each_record(options.at("attr"), [&](cMapObj & r) { fill_from(r, *attribute); });
  for_each_record(ana / "srcpat_unit", [](cMapObj & r) { fill_from(r, *new_unit_pattern()); });
  for_each_record(ana / "srcpat_subentry", [](cMapObj & r) { fill_from(r, *new_subentry()); });
  cMapObj & macros = options.submap("cppmacros");
  for (cIterObj it = macros.begin(); it.valid(); it++)
    fill_macro(*it, it.key_as_string());
}

} // namespace Vapp
