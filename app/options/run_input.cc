// The trees are read here and nowhere else on the way to a run. A reader per part of the input.
#include "app/options/run_input.h"

#include <algorithm>

#include "app/options/attributes.h"
#include "app/options/comment_subentries.h"
#include "app/options/completion.h"
#include "app/options/defaults.h"
#include "app/options/options.h"
#include "app/options/pattern_rules.h"
#include "vlb/gfilesystem.h"

namespace {

using namespace Vapp;

// Values of one tree by their rows.
class Reader {
public:
  explicit Reader(cMapObj const & tree) : tree_(tree) {}

  bool flag(gFlagName name) const { return flag_in(tree_, name.row()); }
  int number(gNumberName name) const { return number_in(tree_, name.row()); }
  gString text(gTextName name) const { return text_in(tree_, name.row()); }
  gPathstring path(gTextName name) const { return absolute(text(name)); }
  static gPathstring absolute(std::string text) { return gPathstring(make_absolute_vlp(text)); }
  // Positions that the list doesn't have are 0.
  std::array<int, 8> numbers(gNumbersName name) const {
    std::vector<int> const list = numbers_in(tree_, name.row());
    std::array<int, 8> numbers{};
    std::copy_n(list.begin(), std::min(list.size(), numbers.size()), numbers.begin());
    return numbers;
  }
  // Calls use(key, value) for each entry of a map that isn't nil.
  template <class Use> void each(std::string_view path, Use const & use) const {
    each_in(entry_of(tree_, *find_row(path)), use);
  }
  template <class Use> static void each_in(cRef<cObj> const & map, Use const & use) {
    for (cIterObj it = map ? map->begin() : cIterObj(nullptr); it.valid(); it++)
      if (!cat::is_nil(it.valref()))
        use(it.key_as_string(), it.valref());
  }

private:
  cMapObj const & tree_;
};

gTextInput text_input(Reader const & read) {
  return {.auto_enum = read.flag("ana/auto_enum"),
          .auto_num = read.flag("ana/auto_num"),
          .start_on_par = read.flag("ana/start_on_par"),
          .tab_width = read.number("ana/tab_width"),
          .verb_indent = read.number("ana/verb_indent")};
}

std::vector<gPathstring> paths_of(gString const & list) {
  std::list<gPathstring> parts;
  gFileSystem::split_path_list(list, parts, true);
  std::vector<gPathstring> paths;
  for (gPathstring const & part : parts)
    paths.push_back(Reader::absolute(part).normalize(true));
  return paths;
}

gCommentInput comment_input(Reader const & read) {
  return {.cpp_line = read.text("ana/cpp_line"),
          .cpp_frame = read.text("ana/cpp_frame"),
          .pas_line = read.text("ana/pas_line"),
          .pas_frame = read.text("ana/pas_frame"),
          .two_stars = read.flag("ana/spt_2star"),
          .three_slashes = read.flag("ana/spt_3slash"),
          .foreign = read.flag("ana/foreign_tags"),
          .aliases = read.text("ana/aliases"),
          .sections = read.text("ana/sections"),
          .internal = read.flag("ana/internal_docs"),
          .examples = paths_of(read.text("ana/example_path")),
          .pictures = paths_of(read.text("ana/image_path")),
          .predefined = read.text("ana/predefined")};
}

gAssociationInput association_input(Reader const & read) {
  return {.order = read.numbers("ana/alloc/order"),
          .prio = read.numbers("ana/alloc/prio"),
          .gen_unit = read.number("ana/alloc/gen_unit"),
          .gen_private = read.flag("ana/alloc/gen_private"),
          .gen_static = read.flag("ana/alloc/gen_static"),
          .gen_extern = read.flag("ana/alloc/gen_extern"),
          .miss_warn = read.flag("ana/alloc/miss_warn"),
          .miss_output = read.flag("ana/alloc/miss_output"),
          .diffattr_code = read.flag("ana/alloc/diffattr_code"),
          .diffattr_err = read.flag("ana/alloc/diffattr_err")};
}

// A list of digits with anything between them.
std::set<int> numbers_of(std::string const & text) {
  std::set<int> numbers;
  int number = 0;
  bool in_number = false;
  for (char c : text + ",") {
    if (Vlb::is_digit(c)) {
      number = number < 100000 ? number * 10 + (c - '0') : number;
      in_number = true;
    } else if (in_number) {
      numbers.insert(number);
      number = 0;
      in_number = false;
    }
  }
  return numbers;
}

gMessageInput message_input(Reader const & read) {
  return {.err_max = read.number("msg/err_max"),
          .lvl_disp = read.number("msg/lvl_disp"),
          .lvl_file = read.number("msg/lvl_file"),
          .suppressed = numbers_of(read.text("msg/suppress"))};
}

// Without those whose word is missing.
std::vector<gKeywordInput> keywords_of(cObj const & record) {
  std::vector<gKeywordInput> keywords;
  Reader::each_in(record.at("kwd"), [&](std::string const &, cRef<cObj> const & pair) {
    gString word, separators;
    if (!cat::read(pair->at(0), word) || word.empty())
      return;
    cat::read(pair->at(1), separators);
    keywords.emplace_back(word, separators);
  });
  return keywords;
}

void read_patterns(Reader const & read, gRunInput & input) {
  read.each("ana/srcpat_unit", [&](std::string const & name, cRef<cObj> const & record) {
    gPatternInput pattern;
    pattern.name = name;
    pattern.keywords = keywords_of(*record);
    cat::read(record->at("idspec"), pattern.idspec);
    cat::read(record->at("slspec"), pattern.slspec);
    cat::read(record->at("slsep"), pattern.slsep);
    cRef<cObj> const attributes = record->at("attr");
    for (cIterObj it = attributes ? attributes->begin() : cIterObj(nullptr); it.valid(); it++)
      pattern.attributes.emplace_back(it.key_as_string(), cat::as_string(it.valref()));
    input.patterns.push_back(std::move(pattern));
  });
  read.each("ana/srcpat_subentry", [&](std::string const & name, cRef<cObj> const & record) {
    input.subentries.push_back({gString(name), keywords_of(*record)});
    input.subentry_names.insert(name);
  });
}

void read_attributes(Reader const & read, gRunInput & input) {
  read.each("attr", [&](std::string const & name, cRef<cObj> const & record) {
    gByName<gString> & values = input.attributes[name];
    Reader::each_in(record->at("val"), [&](std::string const & value, cRef<cObj> const & text) {
      gStrList list;
      cat::read(text, list);
      values[value] = list.make_string("");
    });
  });
  read.each("unitconfig", [&](std::string const & type, cRef<cObj> const & record) {
    gUnitConfig & config = input.unit_config[type];
    if (!record->map())
      return;
    for (cIterObj it = record->begin(); it.valid(); it++) {
      int digits = -1;
      cat::read(it.valref(), digits);
      config.add(it.key_as_string(), digits);
    }
  });
  read.each("cppmacros", [&](std::string const & name, cRef<cObj> const & value) {
    if (gCppMacro macro; cat::read(value, macro))
      input.macros[name] = macro;
  });
}

void read_groups(Reader const & read, gRunInput & input) {
  read.each("inputfiles", [&](std::string const &, cRef<cObj> const & record) {
    gFileGroup group;
    cat::read(record->at("path"), group.paths);
    cat::read(record->at("files"), group.files);
    cat::read(record->at("outgrp"), group.output);
    input.groups.push_back(std::move(group));
  });
}

// Those that a project took over from other systems as a set.
void show_sets(gRunInput & input) {
  for (gSubentrySet set : {gSubentrySet::javadoc, gSubentrySet::docpp})
    for (std::string const & name : subentries_of(set))
      if (input.subentry_names.contains(name))
        input.shown_subentries.emplace_back(gString(name), gString());
}

gRunInput run_input_of(cMapObj const & project) {
  Reader const read(project);
  gRunInput input;
  input.root = read.path("inputcurdir");
  input.script_name = read.text("vls_file");
  input.script = read.path("vls_file");
  input.out_dir = read.path("out_dir");
  input.cpp_ext = read.text("ana/cpp_ext");
  input.pas_ext = read.text("ana/pas_ext");
  input.modern = read.text("ana/dialect") == "modern";
  input.facts_line = read.flag("ana/facts_line");
  input.text = text_input(read);
  input.comments = comment_input(read);
  input.association = association_input(read);
  input.messages = message_input(read);
  read_groups(read, input);
  read_patterns(read, input);
  read_attributes(read, input);
  if (input.modern)
    permit_comments(input);
  show_sets(input);
  return input;
}

gRunInput input_of_new_project() {
  cMapObj project;
  build_defaults(project);
  complete_options(project);
  rebuild_values(project);
  return run_input_of(project);
}

void read_help(Reader const & read, gConversionInput & input) {
  input.style = read.path("hlp/cur_style");
  input.project = read.path("hlp/cur_hpj");
  input.index_separator = read.text("hlp/indexsep");
  input.split_level = read.number("hlp/splitlevel");
  input.simple_index = read.flag("hlp/simpleindex");
  input.hierarchies_apart = read.flag("hlp/hieratounit");
  input.map_wanted = read.flag("hlp/hm_create");
  if (gString const name = read.text("hlp/hm_newfile"); !name.empty())
    input.map_file = Reader::absolute(name).set_extension_default(".hm").normalize(true);
  input.map_base = read.number("hlp/hid_base");
  read.each("hlp/hm_files", [&](std::string const &, cRef<cObj> const & file) {
    if (std::string const path = cat::as_string(file); !path.empty())
      input.other_maps.push_back(Reader::absolute(path).normalize(true));
  });
}

// The files of lists become absolute.
gString absolute_lists(std::string const & lists) {
  gString result;
  for (std::size_t begin = 0; begin < lists.size();) {
    std::size_t const end = std::min(lists.find(';', begin), lists.size());
    std::string const one = lists.substr(begin, end - begin);
    std::size_t const file = one.find_first_not_of(' ', one.find(',') + 1);
    result += result.empty() ? "" : ";";
    if (one.find(',') == one.npos || file == one.npos)
      result += one;
    else
      result += one.substr(0, file) + Reader::absolute(one.substr(file)).normalize(true);
    begin = end + 1;
  }
  return result;
}

void read_links(Reader const & read, gConversionInput & input) {
  input.repository = read.text("htm/repository");
  input.commit = read.text("htm/commit");
  input.external = absolute_lists(read.text("htm/external"));
  if (gString const name = read.text("htm/addresses"); !name.empty())
    input.addresses = Reader::absolute(name).normalize(true);
  input.tagfile = read.text("htm/tagfile");
  input.inventory = read.flag("htm/inventory");
}

} // namespace

void gUnitConfig::add(gString const & subentry, int digits) {
  entries_.emplace_back(subentry, digits);
  digits_[subentry] = digits;
}

int gUnitConfig::digits(std::string_view subentry) const {
  auto const found = digits_.find(subentry);
  return found == digits_.end() ? -1 : found->second;
}

int gRunInput::digits(std::string_view unit_type, std::string_view subentry) const {
  auto const found = unit_config.find(unit_type);
  return found == unit_config.end() ? -1 : found->second.digits(subentry);
}

bool gRunInput::has_value(std::string_view attribute, std::string_view value) const {
  auto const found = attributes.find(attribute);
  return found != attributes.end() && found->second.contains(value);
}

gRunInput Vapp::run_input() {
  gRunInput input = run_input_of(options);
  input.jobs = option_int("jobs");
  return input;
}

gRunInput const & Vapp::standard_run_input() {
  static gRunInput const input = input_of_new_project();
  return input;
}

gConversionInput Vapp::conversion_input(std::string const & target) {
  Reader const read(options);
  auto const path = [&](std::string const & key) {
    gOptionRow const * row = gTextName::find(target + "/" + key);
    return row ? Reader::absolute(text_in(options, *row)) : gPathstring();
  };
  gConversionInput input;
  input.target = target;
  input.out_dir = read.path("out_dir");
  input.folder = path("out_dir");
  input.code = read.path("atc_file");
  input.script = path("cur_vlt");
  input.title = read.text("atc_title");
  input.index_place_holder = read.text("indexsubst");
  input.editor_scheme = option_string("srclink_editor_scheme");
  input.jobs = option_int("jobs");
  input.messages = message_input(read);
  if (target == "hlp") {
    read_help(read, input);
  } else if (target == "rtf") {
    input.style = read.path("rtf/cur_style");
    input.index_separator = read.text("rtf/indexsep");
  } else {
    input.helpers = read.path("htm/cur_helpers_dir");
    input.split_level = read.number("htm/splitlevel");
    if (!read.text("htm/start_text").empty())
      input.start_text = read.path("htm/start_text");
    input.version = read.text("htm/version");
    input.description = read.text("htm/description");
    input.address = read.text("htm/site_url");
    read_links(read, input);
  }
  return input;
}
