// Tables of keys and values, one line a key.
#include "app/options/defaults.h"

#include "app/options/settings.h"
#include "store/ctypeobj.h"

namespace {

void project_frame(cMapObj & options) {
  options["inputcurdir"] = cat::make("");
  options["inputfiles"] = make_ref<cMapObj>();
  options["vls_file"] = cat::make("");
  options["out_dir"] = cat::make("");
  options["indexsubst"] = cat::make("~");
  options["cppmacros"] = make_ref<cMapObj>();
}

void analysis(cMapObj & ana) {
  ana["auto_enum"] = cat::make(true);
  ana["auto_num"] = cat::make(true);
  ana["start_on_par"] = cat::make(true);
  ana["tab_width"] = cat::make(4);
  ana["verb_indent"] = cat::make(4);
  ana["cpp_line"] = cat::make("/*-+=");
  ana["cpp_frame"] = cat::make("/*|");
  ana["cpp_ext"] = cat::make("c; cpp; cxx; h; hpp; hxx");
  ana["pas_line"] = cat::make("*-+=");
  ana["pas_frame"] = cat::make("/*|");
  ana["pas_ext"] = cat::make("p; pas");
  ana["spt_2star"] = cat::make(false);
  ana["spt_3slash"] = cat::make(false);
}

cRef<cObj> vector_of(std::initializer_list<int> numbers) {
  auto vector = make_ref<cVectorObj>();
  for (int number : numbers)
    vector->append(cat::make(number));
  return vector;
}

void association(cMapObj & alloc) {
  alloc["order"] = vector_of({5, 6, 3, 4, 7, 8, 1, 2});
  alloc["prio"] = vector_of({4, 4, 3, 3, 2, 1, 0, 0});
  alloc["miss_warn"] = cat::make(true);
  alloc["miss_output"] = cat::make(true);
  alloc["diffattr_code"] = cat::make(true);
  alloc["diffattr_err"] = cat::make(true);
  alloc["gen_unit"] = cat::make(11); // class, function, method
  alloc["gen_private"] = cat::make(false);
  alloc["gen_static"] = cat::make(false);
  alloc["gen_extern"] = cat::make(false);
}

void messages(cMapObj & msg) {
  msg["err_max"] = cat::make(0);
  msg["lvl_disp"] = cat::make(0);
  msg["lvl_file"] = cat::make(0);
  msg["suppress"] = cat::make("");
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

// A path with its flag "use the default".
void ini_path(cMapObj & target, std::string const & key, char const * name) {
  target[key] = cat::make(Vapp::ini_dir().append(name));
  target[key + "_default"] = cat::make(true);
}

void rtf_target(cMapObj & rtf) {
  rtf["indexsep"] = cat::make("\\:");
  ini_path(rtf, "vlt", "rtf.vlt");
  ini_path(rtf, "style", "rtfstyle.rtf");
}

void help_target(cMapObj & hlp) {
  hlp["splitlevel"] = cat::make(2);
  hlp["simpleindex"] = cat::make(false);
  hlp["indexsep"] = cat::make(":");
  hlp["hieratounit"] = cat::make(false);
  ini_path(hlp, "vlt", "hlp.vlt");
  ini_path(hlp, "style", "hlpstyle.rtf");
  ini_path(hlp, "hpj", "hlp.hpj");
  hlp["hm_create"] = cat::make(false);
  hlp["hm_newfile"] = cat::make("");
  hlp["hid_base"] = cat::make(0x80000);
  hlp["hm_files"] = make_ref<cVectorObj>();
}

void html_target(cMapObj & htm) {
  htm["splitlevel"] = cat::make(2);
  ini_path(htm, "vlt", "htm.vlt");
  ini_path(htm, "helpers_dir", "htm_helpers");
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
  project_frame(options);
  analysis(options.submap("ana"));
  association(options.submap("ana").submap("alloc"));
  messages(options.submap("msg"));
  attributes(options.submap("attr"));
  rtf_target(options.submap("rtf"));
  help_target(options.submap("hlp"));
  html_target(options.submap("htm"));
}

void Vapp::drop_default_paths(cMapObj & options) {
  cMapObj defaults;
  build_defaults(defaults);
  for (char const * target : {"rtf", "hlp", "htm"}) {
    cMapObj & stored = options.submap(target);
    cRef<cObj> const standard = defaults.at(target);
    for (cIterObj it = standard->begin(); it.valid(); it++) {
      bool use_default = false;
      std::string const key = it.key_as_string();
      cat::read(stored.at(key + "_default"), use_default);
      if (use_default && stored.at(key) && stored.at(key)->equal(*it))
        stored.erase(key);
    }
  }
}

void Vapp::build_ini_defaults(cMapObj & options_ini) {
  options_ini["vlp_last"] = cat::make(true);
  options_ini["warn_outdir"] = cat::make(true);
  options_ini["htmhelp"] = cat::make(false);
  options_ini["srclink_editor_cmd"] = cat::make("notepad.exe");
  options_ini["srclink_editor_args"] = cat::make("$file");
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
