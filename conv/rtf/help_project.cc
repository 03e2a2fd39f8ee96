// The template is a project as its compiler knows it; only dollar signs mean something here.

#include "conv/rtf/help_project.h"

#include <set>

#include "vlb/gmsghandler.h"
#include "vlb/gstring.h"
#include "vlb/messages.h"

namespace {

class gProjectFiller {
public:
  gProjectFiller(std::map<std::string, std::string> const & values, std::string const & path)
      : values_(values),
        path_(path) {}

  // The next line.
  std::string filled(std::string_view line) {
    std::string out;
    ++number_;
    while (!line.empty()) {
      std::size_t const dollar = std::min(line.find('$'), line.size());
      out += line.substr(0, dollar);
      line.remove_prefix(dollar);
      if (!line.empty())
        out += take_value(line);
    }
    return out;
  }

private:
  // `line` begins with a dollar sign.
  std::string take_value(std::string_view & line) {
    line.remove_prefix(1);
    if (line.starts_with('$')) {
      line.remove_prefix(1);
      return "$";
    }
    bool const braced = line.starts_with('{');
    line.remove_prefix(braced ? 1 : 0);
    std::size_t end = 0;
    while (end < line.size() && Vlb::is_word(line[end]))
      ++end;
    std::string const name(line.substr(0, end));
    line.remove_prefix(end);
    if (braced && line.starts_with('}'))
      line.remove_prefix(1);
    auto const value = values_.find(name);
    if (value != values_.end())
      return value->second;
    if (reported_.insert(name).second)
      Msg::log(Msg::unknown_placeholder, "$" + name, {path_, number_});
    return {};
  }

  std::map<std::string, std::string> const & values_;
  std::string const & path_;
  std::set<std::string> reported_;
  int number_ = 0;
};

// Takes the first line off; without its end.
std::string_view take_line(std::string_view & text) {
  std::size_t const end = std::min(text.find('\n'), text.size());
  std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  if (line.ends_with('\r'))
    line.remove_suffix(1);
  return line;
}

} // namespace

std::string Help::fill_project(std::string_view text,
                               std::map<std::string, std::string> const & values,
                               std::string const & path) {
  gProjectFiller filler(values, path);
  std::string out;
  while (!text.empty()) {
    std::string_view const line = take_line(text);
    std::string const filled = filler.filled(line);
    if (filled.empty() && !line.empty())
      continue;
    for (std::string_view rest = filled; !rest.empty();)
      (out += take_line(rest)) += "\r\n";
    if (line.empty())
      out += "\r\n";
  }
  return out;
}
