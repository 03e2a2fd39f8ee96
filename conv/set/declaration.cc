// Brackets and words tell where the parameters are.

#include "conv/set/declaration.h"

#include <algorithm>

#include "vlb/gstring.h"

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
// In values "<" compares or shifts.
void add_parts(std::string_view list, std::string_view separators, std::string & out) {
  bool const angles = separators != ",";
  int depth = 0;
  std::size_t begin = 0;
  auto const add = [&](std::size_t end) {
    std::size_t const first = std::min(list.find_first_not_of(' ', begin), end);
    if (first < end)
      (out += "\n    ") += list.substr(first, end - first);
    begin = end;
  };
  for (std::size_t i = 0; i < list.size(); ++i) {
    char const c = list[i];
    bool const angle = angles && (c == '<' || (c == '>' && i > 0 && list[i - 1] != '-'));
    if (c == '(' || c == '[' || c == '{' || (angle && c == '<'))
      ++depth;
    else if (c == ')' || c == ']' || c == '}' || angle)
      --depth;
    else if (separators.find(c) != separators.npos && depth <= 0)
      add(i + 1);
  }
  add(list.size());
}

bool is_of(gKnownFacts const & facts, std::string_view text) {
  return facts.size > 0 && facts.size == text.size();
}

std::size_t head_end(std::string_view text, gKnownFacts const & facts) {
  return is_of(facts, text) && !facts.name.empty() ? facts.template_head.end : template_end(text);
}

// The values of an enumeration or the fields of a structure; empty for other declarations.
std::string_view separators_within(std::string_view text, gKnownFacts const & facts) {
  if (!is_of(facts, text))
    return {};
  bool const fields = facts.kind == "struct" || facts.kind == "union";
  return facts.kind.starts_with("enum") ? "," : fields ? ";" : "";
}

// Each of them on a line of its own.
std::string with_contents_broken(std::string_view text, std::string_view separators) {
  std::string out(text);
  std::size_t const open = text.find('{');
  std::size_t const close = open == text.npos ? open : closing(text, open);
  if (close == text.npos)
    return out;
  out.resize(open + 1);
  add_parts(text.substr(open + 1, close - open - 1), separators, out);
  return (out += '\n').append(text.substr(close));
}

std::size_t list_begin(std::string_view text, gKnownFacts const & facts) {
  if (!is_of(facts, text) || facts.name.empty())
    return parameters_begin(text, head_end(text, facts));
  return facts.parameters.empty() ? std::string_view::npos : facts.parameters.begin;
}

// The word that stands last in a parameter, in front of its default.
std::string_view last_word(std::string_view parameter) {
  parameter = parameter.substr(0, parameter.find('='));
  std::size_t end = parameter.size();
  while (end > 0 && !Vlb::is_word(parameter[end - 1]))
    --end;
  std::size_t begin = end;
  while (begin > 0 && Vlb::is_word(parameter[begin - 1]))
    --begin;
  return parameter.substr(begin, end - begin);
}

} // namespace

std::string Declaration::broken(std::string_view text, gKnownFacts const & facts) {
  if (text.size() <= wide || text.find('\n') != std::string_view::npos || text.starts_with('#'))
    return std::string(text);
  if (std::string_view const separators = separators_within(text, facts); !separators.empty())
    return with_contents_broken(text, separators);
  std::string out;
  std::size_t const head = head_end(text, facts);
  std::size_t from = 0;
  if (head > 0) {
    (out += text.substr(0, head)) += '\n';
    from = std::min(text.find_first_not_of(' ', head), text.size());
  }
  std::size_t const open =
      text.size() - from > wide ? list_begin(text, facts) : std::string_view::npos;
  std::size_t const close = open == std::string_view::npos ? open : closing(text, open);
  if (close == std::string_view::npos || close == open + 1)
    return out.append(text.substr(from));
  out += text.substr(from, open + 1 - from);
  add_parts(text.substr(open + 1, close - open - 1), ",;", out);
  return out.append(text.substr(close));
}

void Declaration::cut(std::string & text) {
  constexpr std::size_t longest = 3000, most_lines = 40;
  std::size_t end = std::min(text.size(), longest);
  for (std::size_t at = 0, lines = 0; (at = text.find('\n', at)) < end; ++at)
    if (++lines == most_lines)
      end = at;
  if (end == text.size())
    return;
  std::size_t const border = text.find_last_of("\n ,", end);
  end = border == text.npos || border < end / 2 ? end : border + 1;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80)
    --end; // no half character
  text.resize(end);
}

std::vector<std::string_view> Declaration::bound_names(std::string_view text,
                                                       gKnownFacts const & facts) {
  std::vector<std::string_view> names;
  std::string_view const head = text.substr(0, head_end(text, facts));
  std::size_t begin = head.find('<');
  int depth = 0;
  for (std::size_t i = std::min(begin, head.size()); i < head.size(); ++i) {
    char const c = head[i];
    bool const ends = (c == ',' && depth == 1) || (c == '>' && depth == 1);
    depth += (c == '<' || c == '(') - (c == '>' || c == ')');
    if (!ends)
      continue;
    if (std::string_view const name = last_word(head.substr(begin + 1, i - begin - 1));
        !name.empty())
      names.push_back(name);
    begin = i;
    if (depth == 0)
      break;
  }
  return names;
}
