// What a help compiler needs: topics, contents, a project that names them, and the numbers of help
// identifiers. The map file with these is the user's and lies where he wants it, so it is written
// when all else is there.

#include "conv/rtf/help.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <set>

#include "conv/rtf/help_contents.h"
#include "conv/rtf/help_map.h"
#include "conv/rtf/help_project.h"
#include "conv/rtf/rtf_links.h"
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

// The files that the user wrote, each once.
std::vector<gPathstring> other_map_files(gConversionInput const & input,
                                         gPathstring const & generated) {
  std::vector<gPathstring> paths;
  for (gPathstring const & path : input.other_maps) {
    bool const is_new = std::ranges::find(paths, path) == paths.end();
    if (is_new && (generated.empty() || path.compare_i(generated) != 0))
      paths.push_back(path);
  }
  return paths;
}

// Quotation marks around it end with its own.
std::string quotable(std::string text) {
  std::ranges::replace(text, '"', '\'');
  return text;
}

// Where the generated map file belongs; empty without one.
gPathstring map_path(gConversionInput const & input) {
  if (!input.map_wanted)
    return {};
  if (input.map_file.empty())
    Msg::log(Msg::no_map_name);
  return input.map_file;
}

class gHelpWriter {
public:
  explicit gHelpWriter(gConversion & conversion)
      : conversion_(conversion),
        rules_(conversion.rules()),
        keywords_(conversion.input().index_separator, conversion.input().index_place_holder),
        name_(base_name(conversion.document().name)),
        title_(quotable(Help::line(conversion.title()))) {}

  bool write() {
    gRtfTemplate style;
    style.load(conversion_.input().style);
    gHelpTopics topics(conversion_, style, keywords_);
    std::string const text = topics.text();
    Rtf::report_dead_jumps(text, gPathstring(conversion_.input().folder).append(name_ + ".rtf"));
    conversion_.write(name_ + ".rtf", text);
    conversion_.write(name_ + ".cnt",
                      Help::contents(topics.topics(), name_ + ".hlp", conversion_.title()));
    gPathstring const map = map_path(conversion_.input());
    std::string const includes = include_maps(map);
    std::string lines;
    return write_project(topics, includes) && make_map(map, topics, lines) &&
           conversion_.finish(name_ + ".hpj") && write_map(map, lines);
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
    for (gPathstring const & path : other_map_files(conversion_.input(), generated)) {
      std::string text;
      if (!gFileSystem::read_file(path, text)) {
        Msg::log(Msg::cannot_read, path);
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
    gPathstring const & path = conversion_.input().project;
    std::string text;
    if (!gFileSystem::read_file(path, text)) {
      Msg::log(Msg::cannot_read, path);
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
    return found == windows.end() ? std::string() : quotable(Help::line(found->second));
  }

  // Without the numbers of an earlier map, all of them would get another meaning.
  bool make_map(gPathstring const & path, gHelpTopics & topics, std::string & lines) const {
    if (path.empty())
      return true;
    std::string before;
    bool const exists = gFileSystem::file_exists(path) || gFileSystem::dir_exists(path);
    if (!gFileSystem::read_file(path, before) && exists) {
      Msg::log(Msg::cannot_read, path);
      return false;
    }
    if (bool const result = is_result(path); result || !Help::is_map(before)) {
      Msg::log(Msg::cannot_write, path,
               result ? "the help has a file of that name" : "it holds no map");
      return false;
    }
    std::vector<std::string> names = topics.help_ids();
    for (auto const & [name, context] : topics.aliases())
      names.push_back(name);
    auto const base = static_cast<std::uint32_t>(std::max(0, conversion_.input().map_base));
    Help::gNumbers const numbers = Help::number(names, Help::read_map(before), others_, base);
    std::set<std::pair<std::uint32_t, std::string_view>> by_number;
    for (auto const & [name, number] : numbers)
      by_number.emplace(number, name);
    for (auto const & [number, name] : by_number)
      add_map_line(name, number, lines);
    return true;
  }

  // Whether the map would take the place of another file.
  bool is_result(gPathstring const & path) const {
    return std::ranges::any_of(std::array{".rtf", ".cnt", ".hpj"}, [&](char const * extension) {
      gPathstring file = conversion_.input().folder;
      return file.append(name_ + extension).normalize(true).compare_i(path) == 0;
    });
  }

  // It may lie in the folder of the result, so that is in place first.
  static bool write_map(gPathstring const & path, std::string const & lines) {
    if (path.empty())
      return true;
    gFileSystem::mk_dirs(path.dir_name());
    if (gFileSystem::write_file_atomic(path, lines))
      return true;
    Msg::log(Msg::cannot_write, path);
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
