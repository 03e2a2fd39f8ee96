// Lines are joined where they end with a backslash, then cut to words. Files of others are read, so
// how much that is has a bound.
#include "app/shell/doxyfile.h"

#include <algorithm>
#include <filesystem>

#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/source_bytes.h"

namespace fs = std::filesystem;

namespace {

constexpr int deepest_include = 8;
constexpr std::size_t most_bytes = 1u << 20, most_words = 100'000;
constexpr std::size_t most_includes = 100;

constexpr char const * known[] = {"ALIASES",
                                  "ENABLED_SECTIONS",
                                  "EXAMPLE_PATH",
                                  "EXCLUDE",
                                  "EXCLUDE_PATTERNS",
                                  "EXTRACT_PRIVATE",
                                  "EXTRACT_STATIC",
                                  "FILE_PATTERNS",
                                  "IMAGE_PATH",
                                  "INPUT",
                                  "INTERNAL_DOCS",
                                  "OUTPUT_DIRECTORY",
                                  "PREDEFINED",
                                  "PROJECT_BRIEF",
                                  "PROJECT_NAME",
                                  "PROJECT_NUMBER",
                                  "RECURSIVE",
                                  "TAGFILES",
                                  "USE_MDFILE_AS_MAINPAGE"};

std::string_view trimmed(std::string_view text) {
  std::size_t const begin = std::min(text.find_first_not_of(" \t\r"), text.size());
  return text.substr(begin, text.find_last_not_of(" \t\r") + 1 - begin);
}

std::string shown(std::string_view text) {
  constexpr std::size_t longest = 60;
  gString result;
  Vlb::add_shown(result, std::string(text.substr(0, longest)));
  return text.size() > longest ? result + "..." : std::string(result);
}

// A blank ends a word but in quotes; "#" begins a remark where a word could begin.
std::vector<std::string> words_of(std::string_view text) {
  std::vector<std::string> words;
  std::string word;
  bool quoted = false, any = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char const c = text[i];
    if (c == '\\' && i + 1 < text.size() && text[i + 1] == '"') {
      word += text[++i];
      any = true;
    } else if (c == '"') {
      quoted = !quoted;
      any = true;
    } else if (quoted || (c != ' ' && c != '\t' && c != '\n' && c != '\r')) {
      if (c == '#' && !any)
        break;
      word += c;
      any = true;
    } else if (any) {
      words.push_back(std::move(word));
      word.clear();
      any = false;
    }
  }
  if (any)
    words.push_back(std::move(word));
  return words;
}

} // namespace

class gDoxyfileReader {
public:
  explicit gDoxyfileReader(gDoxyfile & file) : file_(file) {}
  // Why it can't be read; empty if it could.
  std::string read(gPathstring const & path, int depth);

private:
  std::string assign(std::string_view line, int depth);
  std::string include(std::vector<std::string> const & names, int depth);

  gDoxyfile & file_;
  std::size_t bytes_ = 0, words_ = 0, files_ = 0;
};

std::string gDoxyfileReader::include(std::vector<std::string> const & names, int depth) {
  for (std::string const & name : names) {
    std::error_code error;
    fs::path const root(file_.folder_.c_str());
    fs::path const path = fs::weakly_canonical(root / name, error);
    std::string const folder = fs::weakly_canonical(root, error).string() + "/";
    if (error || !path.string().starts_with(folder))
      return "'" + shown(name) + "' doesn't lie in the folder of the Doxyfile";
    if (depth >= deepest_include || ++files_ > most_includes)
      return "files include each other without end";
    if (std::string const fault = read(gPathstring(path.string()), depth + 1); !fault.empty())
      return fault;
  }
  return {};
}

// "KEY = words", "KEY += words", "@INCLUDE = files".
std::string gDoxyfileReader::assign(std::string_view line, int depth) {
  std::size_t const equals = line.find('=');
  if (equals == line.npos || equals == 0)
    return "'" + shown(line) + "' is no assignment; KEY = VALUE is one";
  bool const more = line[equals - 1] == '+';
  std::string const key(trimmed(line.substr(0, equals - more)));
  std::vector<std::string> words = words_of(line.substr(equals + 1));
  words_ += words.size();
  if (words_ > most_words || file_.values_.size() > most_words)
    return "there are more than " + std::to_string(most_words) + " words";
  if (key == "@INCLUDE")
    return include(words, depth);
  std::vector<std::string> & value = file_.values_[key];
  if (!more)
    value.clear();
  std::ranges::move(words, std::back_inserter(value));
  return {};
}

std::string gDoxyfileReader::read(gPathstring const & path, int depth) {
  std::string text;
  std::error_code error;
  std::string const name = shown(path.file_name());
  if (fs::file_size(path.c_str(), error) > most_bytes && !error)
    return name + " is too long for a Doxyfile";
  if (!Vlb::read_source(path, text))
    return name + " can't be read";
  bytes_ += text.size();
  if (bytes_ > most_bytes || text.find('\0') != text.npos)
    return name + " is no Doxyfile";
  std::size_t number = 0, first = 0;
  std::string whole;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t const end = std::min(text.find('\n', at), text.size());
    std::string_view line = trimmed(std::string_view(text).substr(at, end - at));
    at = end + 1;
    ++number;
    first = whole.empty() ? number : first;
    if (line.starts_with('#'))
      line = {};
    bool const goes_on = line.ends_with('\\');
    whole += (whole.empty() ? "" : " ") + std::string(line.substr(0, line.size() - goes_on));
    if (goes_on && at < text.size())
      continue;
    std::string const fault =
        trimmed(whole).empty() ? std::string() : assign(trimmed(whole), depth);
    if (!fault.empty())
      return depth > 0 && fault.starts_with(name)
                 ? fault
                 : name + ":" + std::to_string(first) + ": " + fault;
    whole.clear();
  }
  return {};
}

std::optional<gDoxyfile> gDoxyfile::read(gPathstring const & file, std::string & fault) {
  gDoxyfile result;
  result.folder_ = file.dir_name();
  fault = gDoxyfileReader(result).read(file, 0);
  return fault.empty() ? std::optional(std::move(result)) : std::nullopt;
}

std::vector<std::string> const & gDoxyfile::list(std::string const & key) const {
  static std::vector<std::string> const none;
  auto const found = values_.find(key);
  return found == values_.end() ? none : found->second;
}

std::string gDoxyfile::text(std::string const & key) const {
  std::string text;
  for (std::string const & word : list(key))
    text += (text.empty() ? "" : " ") + word;
  return text;
}

bool gDoxyfile::flag(std::string const & key, bool standard) const {
  std::string const word = Vlb::to_lower(text(key));
  return word.empty() ? standard : word == "yes" || word == "true" || word == "1";
}

std::vector<gPathstring> gDoxyfile::paths(std::string const & key) const {
  std::vector<gPathstring> paths;
  for (std::string const & word : list(key)) {
    std::error_code error;
    fs::path const path = fs::path(folder_.c_str()) / word;
    paths.push_back(gPathstring(path.lexically_normal().string()));
    if (paths.back().size() > 1 && paths.back().ends_with('/'))
      paths.back().pop_back();
  }
  return paths;
}

std::vector<std::string> gDoxyfile::left_out() const {
  std::vector<std::string> keys;
  for (auto const & [key, words] : values_)
    if (!words.empty() && std::ranges::find(known, key) == std::end(known))
      keys.push_back(key);
  return keys;
}
