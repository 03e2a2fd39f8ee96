// The rows tell the plain options; what has records of its own is made here.
#include "app/options/defaults.h"

#include "app/options/option_rows.h"
#include "store/ctypeobj.h"

namespace {

// The entries that a tree has from the start, in the order of the rows.
void standard_entries(cMapObj & options, Vapp::gOptionTree tree) {
  for (Vapp::gOptionRow const & row : Vapp::option_rows())
    if (row.tree == tree && row.origin == Vapp::gOptionOrigin::standard)
      Vapp::holder_of(options, row).set(Vapp::key_of(row), Vapp::default_of(row));
}

struct AttributeValue {
  char const * value;
  char const * output;
};

void attribute(cMapObj & attr, char const * name, char const * comment,
               std::initializer_list<AttributeValue> values) {
  auto valpre = make_ref<cMapObj>();
  for (AttributeValue const & value : values)
    valpre->set(value.value, cat::make(gStrList(gString(value.output))));
  attr[name]["com"] = cat::make(comment);
  attr[name]["valpre"] = valpre;
  attr[name]["valusr"] = make_ref<cMapObj>();
}

void attributes(cMapObj & attr) {
  attribute(attr, "UNITTYPE", "Type of text unit",
            {{"class", "class"},
             {"function", "function"},
             {"member", "member"},
             {"method", "method"},
             {"event", "event"},
             {"property", "property"},
             {"type", "type"},
             {"var", "variable"},
             {"unit", "unit"},
             {"text", ""},
             {"undefined", ""}});
  attribute(attr, "VISIBILITY", "Visibility of members",
            {{"public", "public"},
             {"protected", "protected"},
             {"private", "private"},
             {"published", "published"},
             {"undefined", ""}});
  attribute(attr, "VIRTUALITY", "Virtuality of methods",
            {{"virtual", "virtual"}, {"nonvirtual", ""}, {"undefined", ""}});
}

struct KeywordRow {
  char const * keyword;
  char const * separators;
};

cRef<cVectorObj> keywords(std::initializer_list<KeywordRow> rows) {
  auto vector = make_ref<cVectorObj>();
  for (KeywordRow const & row : rows)
    vector->append(Vapp::make_keyword(row.keyword, row.separators));
  return vector;
}

void unit_pattern(cMapObj & patterns, char const * unit_type,
                  std::initializer_list<KeywordRow> rows) {
  cRef<cMapObj> record = Vapp::new_unit_pattern();
  record->set("kwd", keywords(rows));
  (*record)["attr"]["UNITTYPE"] = cat::make(unit_type);
  patterns.set(std::string("spt_") + unit_type, record);
}

void subentry(cMapObj & patterns, char const * name, std::initializer_list<KeywordRow> rows) {
  cRef<cMapObj> record = Vapp::new_subentry();
  record->set("kwd", keywords(rows));
  patterns.set(name, record);
}

// A vector serves as a map with numbers for keys where any key may stand.
bool fits(cObj const & value, cObj const & standard) {
  if (standard.map())
    return value.map() && (standard.size() == 0 || &value.type() == &standard.type());
  return cat::new_of(standard.type())->convert(value);
}

void restore(cMapObj & options, cMapObj const & defaults) {
  for (cIterObj it = defaults.begin(); it.valid(); it++) {
    std::string const key = it.key_as_string();
    cRef<cObj> const value = options.at(key);
    if (!value || !fits(*value, *it))
      options.set(key, it.valref());
    else if (&value->type() == &cat::type_map() && key != "attr")
      restore(*value->map(), *it->map());
  }
}

} // namespace

void Vapp::restore_wrong_types(cMapObj & options) {
  cMapObj defaults;
  build_defaults(defaults);
  restore(options, defaults);
}

void Vapp::build_defaults(cMapObj & options) {
  standard_entries(options, gOptionTree::project);
  attributes(options.submap("attr"));
}

void Vapp::drop_default_paths(cMapObj & options) {
  for (gOptionRow const & row : option_rows()) {
    if (row.type != gOptionType::shipped)
      continue;
    bool use_default = false;
    cMapObj & target = holder_of(options, row);
    std::string const key(key_of(row));
    cat::read(target.at(key + "_default"), use_default);
    cRef<cObj> const path = target.at(key);
    if (use_default && path && path->equal(*default_of(row)))
      target.erase(key);
  }
}

void Vapp::build_ini_defaults(cMapObj & options_ini) {
  standard_entries(options_ini, gOptionTree::settings);
}

void Vapp::restore_wrong_settings(cMapObj & options_ini) {
  for (gOptionRow const & row : option_rows()) {
    std::string const key(key_of(row));
    cRef<cObj> const standard = default_of(row);
    cRef<cObj> const value = row.tree == gOptionTree::settings ? options_ini.at(key) : nullptr;
    if (value && !fits(*value, *standard))
      options_ini.set(key, standard);
  }
}

cRef<cMapObj> Vapp::default_unit_config(std::string_view unit_type) {
  auto config = make_ref<cMapObj>();
  config->set("@description", cat::make(110));
  config->set("@declaration", cat::make(11));
  if (unit_type == "class")
    config->set("@heritage", cat::make(11));
  if (unit_type == "function" || unit_type == "method") {
    config->set("@parameter", cat::make(0));
    config->set("@return", cat::make(0));
  }
  return config;
}

cRef<cMapObj> Vapp::default_unit_patterns() {
  auto patterns = make_ref<cMapObj>();
  unit_pattern(*patterns, "class", {{"@class", ""}, {"@c", ""}});
  unit_pattern(*patterns, "function", {{"@function", ""}, {"@f", ""}});
  unit_pattern(*patterns, "member", {{"@member", ""}});
  unit_pattern(*patterns, "method", {{"@method", ""}, {"@m", ""}});
  unit_pattern(*patterns, "event", {{"@event", ""}, {"@e", ""}});
  unit_pattern(*patterns, "property", {{"@property", ""}, {"@p", ""}});
  unit_pattern(*patterns, "type", {{"@type", ""}, {"@t", ""}});
  unit_pattern(*patterns, "var", {{"@var", ""}, {"@v", ""}});
  unit_pattern(*patterns, "unit", {{"@unit", ""}, {"@u", ""}});
  unit_pattern(*patterns, "text", {{"@text", ""}, {"@x", ""}});
  return patterns;
}

cRef<cMapObj> Vapp::default_subentry_patterns() {
  auto patterns = make_ref<cMapObj>();
  subentry(*patterns, "@description", {{"@description", ""}, {"@des", ""}, {"Description", ":"}});
  subentry(*patterns, "@declaration", {{"@declaration", ""}, {"@dec", ""}, {"Deklaration", ":"}});
  subentry(*patterns, "@sline", {{"@sline", ""}, {"@sli", ""}});
  subentry(*patterns, "@parameter", {{"@parameter", ""}, {"@par", ""}, {"Parameter", ":"}});
  subentry(*patterns, "@return", {{"@return", ""}, {"@ret", ""}, {"Return", ":"}});
  subentry(*patterns, "@heritage", {{"@heritage", ""}, {"@her", ""}, {"Basis", ":"}});
  subentry(*patterns, "@comment", {{"@comment", ""}, {"@com", ""}, {"See also", ":"}});
  return patterns;
}

cRef<cMapObj> Vapp::new_unit_pattern() {
  auto record = make_ref<cMapObj>();
  record->set("kwd", make_ref<cVectorObj>());
  record->set("attr", make_ref<cMapObj>());
  record->set("idspec", cat::make(0));
  record->set("slspec", cat::make(0));
  record->set("slsep", cat::make(""));
  return record;
}

cRef<cMapObj> Vapp::new_subentry() {
  auto record = make_ref<cMapObj>();
  record->set("kwd", make_ref<cVectorObj>());
  return record;
}

cRef<cMapObj> Vapp::new_attribute(std::string const & comment) {
  auto record = make_ref<cMapObj>();
  (*record)["com"] = cat::make(comment);
  (*record)["valpre"]["undefined"] = cat::make(gStrList(gString()));
  (*record)["valusr"] = make_ref<cMapObj>();
  (*record)["val"]["undefined"] = cat::make(gStrList(gString()));
  return record;
}

cRef<cVectorObj> Vapp::make_keyword(std::string const & keyword, std::string const & separators) {
  auto pair = make_ref<cVectorObj>();
  pair->append(cat::make(keyword));
  pair->append(cat::make(separators));
  return pair;
}
