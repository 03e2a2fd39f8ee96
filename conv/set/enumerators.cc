// The list stands in the last brackets of its language; what is in brackets within parts nothing.

#include "conv/set/enumerators.h"

#include <algorithm>

#include "vlb/gstring.h"

namespace {

bool is_enumeration(std::string_view kind) {
  return kind == "enum" || kind == "enum class" || kind == "enumeration";
}

std::string_view list_of(std::string_view text, std::string_view kind) {
  bool const pascal = kind == "enumeration";
  std::size_t const begin = text.find(pascal ? '(' : '{');
  std::size_t const end = text.rfind(pascal ? ')' : '}');
  return begin == text.npos || end == text.npos || end < begin
             ? std::string_view()
             : text.substr(begin + 1, end - begin - 1);
}

std::string_view without_blanks(std::string_view text) {
  std::size_t const begin = std::min(text.find_first_not_of(" \t\r\n"), text.size());
  std::size_t const end = text.find_last_not_of(" \t\r\n");
  return end == text.npos ? std::string_view() : text.substr(begin, end + 1 - begin);
}

void add_item(std::string_view item, std::vector<gEnumerator> & out) {
  item = without_blanks(item);
  std::size_t end = 0;
  while (end < item.size() && (Vlb::is_word(item[end]) || (item[end] & 0x80) != 0))
    ++end;
  if (end == 0 || Vlb::is_digit(item[0]))
    return;
  gEnumerator result{std::string(item.substr(0, end)), {}};
  if (std::size_t const sign = item.find('=', end); sign != item.npos)
    result.value = without_blanks(item.substr(sign + 1));
  out.push_back(std::move(result));
}

} // namespace

std::vector<gEnumerator> Declaration::enumerators_of(gUnitRecord const & unit) {
  std::vector<gEnumerator> result;
  if (!is_enumeration(unit.facts.kind))
    return result;
  std::string_view const list = list_of(unit.declaration, unit.facts.kind);
  std::size_t begin = 0;
  int depth = 0;
  char quote = 0;
  for (std::size_t i = 0; i < list.size(); ++i) {
    char const c = list[i];
    if (quote != 0) {
      i += c == '\\' ? 1 : 0;
      quote = c == quote ? char(0) : quote;
    } else if (c == '"' || (c == '\'' && (i == 0 || !Vlb::is_word(list[i - 1])))) {
      quote = c;
    } else if (c == '(' || c == '[' || c == '{') {
      ++depth;
    } else if (c == ')' || c == ']' || c == '}') {
      --depth;
    } else if (c == ',' && depth <= 0) {
      add_item(list.substr(begin, i - begin), result);
      begin = i + 1;
    }
  }
  add_item(list.substr(std::min(begin, list.size())), result);
  return result;
}
