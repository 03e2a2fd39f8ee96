// What a run and a conversion take from the options. Copied on the thread that starts them, so that
// the trees may change while they are at work: nothing in here is shared with a tree.
#pragma once

#include <array>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "store/gcppmacro.h"
#include "vlb/gpathstring.h"

template <class T> using gByName = std::map<std::string, T, std::less<>>;

struct gFileGroup {
  gString paths, files; // as in the option, separated by ";"
  gString output;       // the name by which scripts select the group
};

// A keyword and the characters of which one has to follow it.
using gKeywordInput = std::pair<gString, gString>;

struct gPatternInput {
  gString name;
  std::vector<gKeywordInput> keywords;
  int idspec = 0;
  int slspec = 0;
  gString slsep;
  std::vector<std::pair<gString, gString>> attributes;
};

struct gSubentryInput {
  gString name;
  std::vector<gKeywordInput> keywords;
};

// The subentries of a unit type in their order, with the digits of each.
class gUnitConfig {
public:
  void add(gString const & subentry, int digits);
  std::vector<std::pair<gString, int>> const & entries() const { return entries_; }
  // -1 if the subentry isn't permitted.
  int digits(std::string_view subentry) const;

private:
  std::vector<std::pair<gString, int>> entries_;
  gByName<int> digits_;
};

struct gTextInput {
  bool auto_enum, auto_num, start_on_par;
  int tab_width, verb_indent; // blanks
};

struct gCommentInput {
  gString cpp_line, cpp_frame, pas_line, pas_frame;
  bool two_stars, three_slashes;     // comments that begin so are units
  bool foreign;                      // comments are those of other systems
  gString aliases, sections;         // as in the options
  bool internal;                     // private text is shown
  std::vector<gPathstring> examples; // folders and files, absolute
  std::vector<gPathstring> pictures; // the same
  gString predefined;                // macros, as in the option
};

struct gAssociationInput {
  std::array<int, 8> order, prio;
  int gen_unit; // bits
  bool gen_private, gen_static, gen_extern;
  bool miss_warn, miss_output;
  bool diffattr_code, diffattr_err;
};

struct gMessageInput {
  int err_max; // 0 for no limit
  int lvl_disp, lvl_file;
  std::set<int> suppressed;
};

struct gRunInput {
  gPathstring root;    // of the input paths, absolute
  gPathstring script;  // absolute
  gString script_name; // as the user wrote it
  gPathstring out_dir; // absolute
  gString cpp_ext, pas_ext;
  std::vector<gFileGroup> groups;
  bool modern = false;     // the dialect
  bool has_kinds = false;  // the attribute KIND is what the readers say
  bool facts_line = false; // facts about units stand in the intermediate code
  int jobs = 0;            // threads; 0 for one a core. Changes nothing in the result
  gPathstring facts;       // a folder with what sources say; empty for none. Nor does this
  std::string facts_key;   // of all that their reading was asked for
  gTextInput text;
  gCommentInput comments;
  gAssociationInput association;
  gMessageInput messages;
  std::vector<gPatternInput> patterns;
  std::vector<gSubentryInput> subentries;
  std::set<std::string, std::less<>> subentry_names; // also of those without keywords
  // Name and title of those that a unit shows without a word in the script, besides the usual ones.
  std::vector<std::pair<gString, gString>> shown_subentries;
  gByName<gUnitConfig> unit_config;
  gByName<gByName<gString>> attributes; // output texts by attribute and value
  gByName<gCppMacro> macros;

  // The digits of a unit type's subentry; -1 if it isn't permitted.
  int digits(std::string_view unit_type, std::string_view subentry) const;
  bool has_value(std::string_view attribute, std::string_view value) const;
};

// Paths are absolute. What a target doesn't have is empty.
struct gConversionInput {
  std::string target;  // "htm", "rtf", "hlp"
  gPathstring out_dir; // of the run, for the log
  gPathstring folder;  // of the result
  gPathstring code;    // intermediate
  gPathstring script, style, project, helpers;
  gString title;
  gString index_place_holder, index_separator;
  gString editor_scheme;
  gPathstring start_text;                // empty for none
  gString version, description, address; // of the site
  gString repository, commit;            // addresses of sources, see gRepository
  gString external;      // lists of other documentation, see gExternals; files are absolute
  gPathstring addresses; // the map of addresses; empty for none
  gString tagfile;       // a name in the result
  bool inventory = false;
  int split_level = 0;
  int jobs = 0; // threads; 0 for one a core
  bool simple_index = false, hierarchies_apart = false;
  bool map_wanted = false;
  gPathstring map_file;
  int map_base = 0;
  std::vector<gPathstring> other_maps;
  gMessageInput messages{};
};

namespace Vapp {

// From the trees as they are now. Only for the thread that changes them.
gRunInput run_input();
// From what the driver of a target left in the trees.
gConversionInput conversion_input(std::string const & target);

// That of a new project; constant.
gRunInput const & standard_run_input();

// The weights of the digits are those of unitconfig_rules.h.
inline bool config_fill_out(int digits) {
  return digits >= 100;
}
inline bool config_automatic(int digits) {
  return digits >= 0 && digits % 100 >= 10;
}
inline bool config_verbatim(int digits) {
  return digits >= 0 && digits % 10 == 1;
}

} // namespace Vapp
