#include "app/options/option_schema.h"

#include "app/options/defaults.h"
#include "app/options/option_rows.h"

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

// Options with entries of their own kind; null for all others.
cRef<cObj> example_of_map(std::string_view path) {
  if (path == "inputfiles")
    return any_key(file_group());
  if (path == "attr")
    return any_key(attribute_record());
  if (path == "cppmacros")
    return any_key(cat::make(gCppMacro()));
  if (path == "unitconfig")
    return any_key(any_key(cat::make(0)));
  if (path == "ana/srcpat_unit")
    return any_key(pattern_record());
  if (path == "ana/srcpat_subentry")
    return any_key(subentry_record());
  return nullptr;
}

cRef<cObj> example_of(gOptionRow const & row) {
  if (row.type == gOptionType::texts)
    return any_element(cat::make(""));
  cRef<cObj> const map = example_of_map(row.path);
  return map ? map : default_of(row);
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
  for (gOptionRow const & row : option_rows())
    if (row.tree == gOptionTree::project)
      holder_of(*schema, row).set(key_of(row), example_of(row));
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
