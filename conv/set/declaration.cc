// Brackets and words tell where the parameters are.

#include "conv/set/declaration.h"

#include <algorithm>

namespace {

constexpr std::size_t wide = 80;

// Words with brackets of their own in front of the parameters.
bool has_own_brackets(std::string_view before) {
  for (std::string_view const word :
       {"decltype", "noexcept", "alignas", "__attribute__", "__declspec", "requires", "explicit"})
    if (before.ends_with(word))
      return true;
  return false;
}

// The bracket that closes the one at `open`, or npos.
std::size_t closing(std::string_view text, std::size_t open) {
  int depth = 0;
  for (std::size_t i = open; i < text.size(); ++i)
    if (text[i] == '(' || text[i] == '[' || text[i] == '{')
      ++depth;
    else if ((text[i] == ')' || text[i] == ']' || text[i] == '}') && --depth == 0)
      return i;
  return std::string_view::npos;
}

// Where "template <...>" ends; 0 without one.
std::size_t template_end(std::string_view text) {
  if (!text.starts_with("template"))
    return 0;
  int angles = 0, brackets = 0;
  for (std::size_t i = 8; i < text.size(); ++i) {
    char const c = text[i];
    brackets += c == '(' ? 1 : c == ')' ? -1 : 0;
    if (brackets > 0)
      continue;
    angles += c == '<' ? 1 : c == '>' ? -1 : 0;
    if (c == '>' && angles == 0)
      return i + 1;
  }
  return 0;
}

std::size_t parameters_begin(std::string_view text, std::size_t from) {
  int angles = 0;
  for (std::size_t i = from; i < text.size(); ++i) {
    std::string_view before = text.substr(from, i - from);
    before = before.substr(0, before.find_last_not_of(' ') + 1);
    if (text[i] == '<' && !before.ends_with("operator") && !before.ends_with("operator<"))
      ++angles;
    else if (text[i] == '>' && angles > 0)
      --angles;
    else if (text[i] == '(') {
      bool const own =
          angles > 0 || before.empty() || has_own_brackets(before) || before.ends_with("operator");
      if (!own)
        return i;
      i = closing(text, i);
      if (i == std::string_view::npos)
        break;
    }
  }
  return std::string_view::npos;
}

// The text with a line feed behind each separator that stands in no brackets.
void add_parameters(std::string_view list, std::string & out) {
  int depth = 0;
  std::size_t begin = 0;
  auto const add = [&](std::size_t end) {
    std::size_t const first = std::min(list.find_first_not_of(' ', begin), end);
    out += "\n    ";
    out += list.substr(first, end - first);
    begin = end;
  };
  for (std::size_t i = 0; i < list.size(); ++i) {
    char const c = list[i];
    if (c == '(' || c == '[' || c == '{' || c == '<')
      ++depth;
    else if (c == ')' || c == ']' || c == '}' || (c == '>' && i > 0 && list[i - 1] != '-'))
      --depth;
    else if ((c == ',' || c == ';') && depth <= 0)
      add(i + 1);
  }
  add(list.size());
}

} // namespace

std::string Declaration::broken(std::string_view text) {
  if (text.size() <= wide || text.find('\n') != std::string_view::npos || text.starts_with('#'))
    return std::string(text);
  std::string out;
  if (std::size_t const head = template_end(text); head > 0) {
    (out += text.substr(0, head)) += '\n';
    text.remove_prefix(std::min(text.find_first_not_of(' ', head), text.size()));
  }
  std::size_t const open = text.size() > wide ? parameters_begin(text, 0) : std::string_view::npos;
  std::size_t const close = open == std::string_view::npos ? open : closing(text, open);
  if (close == std::string_view::npos || close == open + 1)
    return out.append(text);
  out += text.substr(0, open + 1);
  add_parameters(text.substr(open + 1, close - open - 1), out);
  return out.append(text.substr(close));
}
