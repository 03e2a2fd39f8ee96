// Told by words. In doubt a comment is text: a remark too much is a smaller loss than a
// description.
#include "ana/read/comment_noise.h"

#include <algorithm>
#include <array>

#include "ana/comments/words.h"
#include "vlb/gstring.h"

namespace {

constexpr auto npos = std::string_view::npos;

bool contains_any(std::string_view text, std::initializer_list<std::string_view> words) {
  return std::any_of(words.begin(), words.end(),
                     [&](std::string_view word) { return text.find(word) != npos; });
}

std::string_view first_word(std::string_view text) {
  std::size_t end = 0;
  while (end < text.size() && Vlb::is_word(text[end]))
    ++end;
  return text.substr(0, end);
}

// "$Id$", "$Revision: 1.2 $": what a version control system fills in.
bool is_version_mark(std::string_view words) {
  if (!words.starts_with('$') || words.size() < 3 || !Vlb::is_letter(words[1]))
    return false;
  std::string_view const behind = words.substr(1 + first_word(words.substr(1)).size());
  return behind.starts_with('$') ||
         (behind.starts_with(':') && behind.substr(0, behind.find('\n')).find('$') != npos);
}

// "TODO: x", "FIXME(me) x"; "XXX" alone is often a placeholder.
bool is_note_to_self(std::string_view words) {
  std::string_view const word = first_word(words);
  std::string_view const behind = words.substr(word.size());
  bool const marked = behind.empty() || behind[0] == ':' || behind[0] == '(' || behind[0] == '!';
  return word == "TODO" || word == "FIXME" || (word == "XXX" && marked);
}

bool ends_like_code(std::string_view line, bool pascal) {
  constexpr std::string_view ends = ";{},)\\";
  return pascal ? line.ends_with(';') || line.ends_with(',')
                : ends.find(line.back()) != npos || line.front() == '#';
}

bool is_directive(std::string_view line) {
  static constexpr std::array<std::string_view, 8> words = {"if",    "ifdef",  "ifndef", "else",
                                                            "endif", "define", "undef",  "include"};
  if (!line.starts_with('#'))
    return false;
  std::string_view const word = first_word(trimmed(line.substr(1)));
  return std::find(words.begin(), words.end(), word) != words.end();
}

// How many equal signs of a drawn line end a text.
std::size_t rule_behind(std::string_view words) {
  if (words.empty() || std::string_view("-=*#~/_+").find(words.back()) == npos)
    return 0;
  return words.size() - (words.find_last_not_of(words.back()) + 1);
}

// A sentence may end with ";", too: a statement has signs, or is short.
bool is_statement(std::string_view line, bool pascal) {
  static constexpr std::array<std::string_view, 11> heads = {
      "const", "unsigned", "static", "struct",    "extern", "typedef",
      "using", "return",   "var",    "inherited", "virtual"};
  bool const ends =
      line.ends_with(';') || (!pascal && (line.ends_with('{') || line.ends_with('}')));
  if (!ends)
    return false;
  bool const is_short = std::count(line.begin(), line.end(), ' ') < 2;
  std::string_view const head = first_word(line);
  return is_short || line.find_first_of("(=[*<>{}&") != npos ||
         std::find(heads.begin(), heads.end(), head) != heads.end();
}

} // namespace

bool is_licence(std::string_view words) {
  return contains_any(words, {"opyright", "OPYRIGHT", "SPDX-License", "ermission is hereby granted",
                              "General Public License", "distributed under"});
}

bool may_be_licence(std::string_view words) {
  return is_licence(words) || contains_any(words, {"icense", "icence"});
}

bool has_words(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) {
    return Vlb::is_letter(c) || Vlb::is_digit(c) || static_cast<unsigned char>(c) >= 0x80;
  });
}

// "/* Exported types -------*/", "// === Helpers ===": all on one line, so the rule is no frame.
bool is_caption(std::string_view comment) {
  constexpr std::size_t one_side = 8, both_sides = 3;
  if (comment.starts_with("//~")) // marks a stretch of overrides of one base
    return true;
  if (comment.size() < 4 || comment.find('\n') != npos)
    return false;
  std::string_view words = trimmed(comment.substr(comment[0] == '/' ? 2 : 1));
  for (std::string_view const closer : {"*/", "*)", "}"})
    if (words.ends_with(closer)) {
      words = trimmed(words.substr(0, words.size() - closer.size()));
      break;
    }
  if (words.empty() || std::string_view("-=*#~/_+").find(words.front()) == npos)
    return rule_behind(words) >= one_side;
  std::size_t const front = std::min(words.find_first_not_of(words.front()), words.size());
  return front >= one_side || rule_behind(words) >= one_side ||
         (front >= both_sides && rule_behind(words) >= both_sides);
}

bool is_kind_word(std::string_view word) {
  static constexpr std::array<std::string_view, 44> kinds = {
      "accessors",  "api",         "callbacks",    "constants", "constructors", "declarations",
      "defines",    "destructors", "enumerations", "enums",     "events",       "fields",
      "flags",      "functions",   "getters",      "globals",   "handlers",     "helpers",
      "includes",   "interfaces",  "iterators",    "macros",    "members",      "messages",
      "methods",    "modifiers",   "mutators",     "observers", "operators",    "overrides",
      "procedures", "properties",  "prototypes",   "routines",  "setters",      "signals",
      "slots",      "structs",     "structures",   "typedefs",  "types",        "utilities",
      "utils",      "variables"};
  return std::ranges::binary_search(kinds, word);
}

// Says of what kind the declarations below are: "Forward declarations", "Data members:".
bool is_group_title(std::string_view words) {
  static constexpr std::array<std::string_view, 18> qualities = {
      "access", "class",    "common",    "data",   "exported", "forward",
      "free",   "function", "global",    "helper", "local",    "member",
      "other",  "private",  "protected", "public", "static",   "virtual"};
  std::string const lower = Vlb::to_lower(words);
  words = trimmed(lower);
  while (words.ends_with(':') || words.ends_with('.'))
    words.remove_suffix(1);
  std::size_t const last = words.find_last_of(' ') + 1;
  if (!is_kind_word(words.substr(last)))
    return false;
  for (std::string_view rest = trimmed(words.substr(0, last)); !rest.empty();) {
    std::string_view const word = first_word(rest);
    if (word != "and" && !is_kind_word(word) &&
        std::ranges::find(qualities, word) == qualities.end())
      return false;
    rest = trimmed(rest.substr(word.size()));
  }
  return true;
}

bool is_tool_switch(std::string_view words, bool pascal) {
  static constexpr std::array<std::string_view, 15> heads = {
      "NOLINT", "clang-format o", "cppcheck-", "IWYU pragma", "LINT.",
      "lint -", "lint !",         "{{{",       "}}}",         "coverity[",
      "-*-",    "vim:",           "NB: clang", "LCOV_EXCL",   "*INDENT-"};
  words = trimmed(words);
  return std::any_of(heads.begin(), heads.end(),
                     [&](std::string_view head) { return words.starts_with(head); }) ||
         (words.starts_with("< ") && words.ends_with(" >")) || // "/*< private >*/"
         words == "private:" || words == "public:" || is_version_mark(words) ||
         is_note_to_self(words) || (pascal && words.starts_with('$'));
}

bool is_part_mark(std::string_view comment) {
  std::string_view const words =
      trimmed(comment.substr(std::min(comment.find_first_not_of("/!#"), comment.size())));
  return words.size() > 2 && words.size() < 200 && words[0] == '[' &&
         words.find(']') == words.size() - 1 && comment.starts_with("//");
}

bool is_dead_code(std::string_view words, bool pascal) {
  std::string_view rest = trimmed(words), last;
  while (!rest.empty()) {
    std::string_view const line = trimmed(rest.substr(0, rest.find('\n')));
    rest.remove_prefix(std::min(rest.find('\n'), rest.size() - 1) + 1);
    if (line.empty())
      continue;
    if (!ends_like_code(line, pascal) && !is_directive(line))
      return false;
    last = line;
  }
  return !last.empty() && (is_statement(last, pascal) || (!pascal && is_directive(last)));
}
