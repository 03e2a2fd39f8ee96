// What a help compiler needs: topics, contents, a project that names them, and the numbers of help
// identifiers. The map file with these is the user's and lies where he wants it, so it is written
// when all else is there.

#include "conv/rtf/help.h"

#include <algorithm>
#include <cstdio>
#include <set>

#include "app/options/options.h"
#include "conv/rtf/help_contents.h"
#include "conv/rtf/help_map.h"
#include "conv/rtf/help_project.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

using V = gVltValue;

// As the base of file names on the systems that have help compilers.
std::string base_name(std::string name) {
  std::ranges::replace_if(
      name, [](char c) { return std::string_view("/\\:*?\"<>|$").find(c) != std::string::npos; },
      '_');
  return name;
}

// The paths of the option that name a file which isn't the generated one.
std::vector<gPathstring> other_map_files(gPathstring const & generated) {
  std::vector<gPathstring> paths;
  cRef<cObj> const files = Vapp::option("hlp/hm_files");
  for (int i = 0; files && i < files->size(); ++i) {
    gString text;
    if (!cat::read(files->at(i), text) || text.empty())
      continue;
    gPathstring path = gString(Vapp::make_absolute_vlp(text));
    path.normalize(true);
    if (generated.empty() || path.compare_i(generated) != 0)
      paths.push_back(path);
  }
  return paths;
}

// Where the generated map file belongs; empty without one.
gPathstring map_path(gConversion const & conversion) {
  if (!conversion.option_bool("hm_create", false))
    return {};
  if (conversion.option_string("hm_newfile").empty()) {
    Msg::log(Msg::error, Msg::no_map_name);
    return {};
  }
  return Vapp::option_path("hlp/hm_newfile").set_extension_default(".hm").normalize(true);
}

class gHelpWriter {
public:
  explicit gHelpWriter(gConversion & conversion)
      : conversion_(conversion),
        rules_(conversion.rules()),
        keywords_(conversion.option_string("indexsep", ":"),
                  Vapp::option_string("indexsubst", "~")),
        name_(base_name(conversion.document().name)),
        title_(Help::line(conversion.title())) {}

  bool write() {
    gRtfTemplate style;
    style.load(gString(conversion_.option_string("cur_style")));
    gHelpTopics topics(conversion_, style, keywords_);
    conversion_.write(name_ + ".rtf", topics.text());
    conversion_.write(name_ + ".cnt",
                      Help::contents(topics.topics(), name_ + ".hlp", conversion_.title()));
    gPathstring const map = map_path(conversion_);
    std::string const includes = include_maps(map);
    return write_project(topics, includes) && write_map(map, topics) &&
           conversion_.finish(name_ + ".hpj");
  }

private:
  void add_include(gPathstring const & path, std::string & lines) const {
    std::string const shown = Help::line(path), whole = "#include <" + shown + ">\n";
    rules_.apply(gVltRule::project_line, "include",
                 gVltValues().set(V::path, shown).set(V::text, whole), lines);
  }

  // The lines for all map files. The numbers of those that the user wrote are kept.
  std::string include_maps(gPathstring const & generated) {
    std::string lines;
    if (!generated.empty())
      add_include(generated, lines);
    for (gPathstring const & path : other_map_files(generated)) {
      std::string text;
      if (!gFileSystem::read_file(path, text)) {
        Msg::log(Msg::error, Msg::cannot_read, path);
        continue;
      }
      others_.merge(Help::read_map(text));
      add_include(path, lines);
    }
    return lines;
  }

  std::string alias_lines(gHelpTopics const & topics) const {
    std::string lines;
    for (auto const & [name, context] : topics.aliases()) {
      std::string const whole = name + "=" + context + "\n";
      gVltValues values;
      values.set(V::name, name).set(V::context, context).set(V::text, whole);
      rules_.apply(gVltRule::project_line, "alias", values, lines);
    }
    return lines;
  }

  static std::string start_of(gHelpTopics const & topics) {
    auto const start = std::ranges::find_if(
        topics.topics(), [](gHelpTopic const & topic) { return topic.wintype != "popup"; });
    return start == topics.topics().end() ? std::string() : start->context;
  }

  bool write_project(gHelpTopics const & topics, std::string const & includes) {
    gPathstring const path = gString(conversion_.option_string("cur_hpj"));
    std::string text;
    if (!gFileSystem::read_file(path, text)) {
      Msg::log(Msg::error, Msg::cannot_read, path);
      return false;
    }
    std::map<std::string, std::string> values = {
        {"name", name_},
        {"title", title_},
        {"start", start_of(topics)},
        {"separator", std::string(1, keywords_.separator())},
        {"aliases", alias_lines(topics)},
        {"maps", includes}};
    for (char const * window : {"main", "subwin", "popup"})
      values[window] = window_title(window);
    conversion_.write(name_ + ".hpj", Help::fill_project(text, values, path));
    return true;
  }

  std::string window_title(char const * window) const {
    auto const & windows = conversion_.document().wintypes;
    auto const found = windows.find(window);
    return found == windows.end() ? std::string() : Help::line(found->second);
  }

  bool write_map(gPathstring const & path, gHelpTopics & topics) const {
    if (path.empty())
      return true;
    std::vector<std::string> names = topics.help_ids();
    for (auto const & [name, context] : topics.aliases())
      names.push_back(name);
    std::string before, lines;
    gFileSystem::read_file(path, before);
    auto const base =
        static_cast<std::uint32_t>(std::max(0, conversion_.option_int("hid_base", 0x80000)));
    Help::gNumbers const numbers = Help::number(names, Help::read_map(before), others_, base);
    std::set<std::pair<std::uint32_t, std::string_view>> by_number;
    for (auto const & [name, number] : numbers)
      by_number.emplace(number, name);
    for (auto const & [number, name] : by_number)
      add_map_line(name, number, lines);
    if (gFileSystem::write_file_atomic(path, lines))
      return true;
    Msg::log(Msg::error, Msg::cannot_write, path);
    return false;
  }

  void add_map_line(std::string_view name, std::uint32_t number, std::string & lines) const {
    char digits[16];
    std::snprintf(digits, sizeof digits, "0x%05X", number);
    std::string const whole = std::string(name) + "  " + digits + "\n";
    gVltValues values;
    values.set(V::name, name).set(V::number, digits).set(V::text, whole);
    rules_.apply(gVltRule::map_line, values, lines);
  }

  gConversion & conversion_;
  gVltRules const & rules_;
  gHelpKeywords const keywords_;
  std::string const name_, title_;
  Help::gNumbers others_; // of map files that the user wrote
};

} // namespace

bool make_help(gConversion & conversion) {
  return conversion.start() && gHelpWriter(conversion).write();
}
