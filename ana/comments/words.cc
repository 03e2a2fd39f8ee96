#include "ana/comments/words.h"

#include <algorithm>
#include <cctype>

bool is_letter(char c) {
  return std::isalpha(static_cast<unsigned char>(c)) != 0;
}

bool ends_word(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\0';
}

bool is_one_of(char c, std::string_view set) {
  return c != '\0' && set.find(c) != set.npos;
}

bool is_white(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

bool is_control(char c) {
  return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

std::string_view trimmed(std::string_view text) {
  std::size_t const begin = std::min(text.find_first_not_of(" \t\r\n"), text.size());
  return text.substr(begin, text.find_last_not_of(" \t\r\n") + 1 - begin);
}

std::string title_id(std::string_view title) {
  std::string id(title);
  std::ranges::replace(id, ' ', '-');
  return id;
}

std::string_view without_annotations(std::string_view text) {
  std::string_view rest = text;
  while (rest.starts_with('(')) {
    std::size_t const end = rest.find(')');
    if (end == rest.npos)
      return text;
    rest = trimmed(rest.substr(end + 1));
  }
  bool const closed = rest.size() < text.size() && rest.starts_with(':');
  return rest.empty() ? rest : closed ? trimmed(rest.substr(1)) : text;
}

gNamedItem named_item(std::string_view rest) {
  gNamedItem item;
  if (rest.starts_with('[')) {
    std::size_t const end = std::min(rest.find(']'), rest.size() - 1);
    item.direction = trimmed(rest.substr(1, end - 1));
    rest = trimmed(rest.substr(end + 1));
  }
  if (rest.starts_with('{')) // a type, as in scripts
    rest = trimmed(rest.substr(std::min(rest.find('}'), rest.size() - 1) + 1));
  std::size_t const name_end = std::min(rest.find_first_of(" \t"), rest.size());
  item.name = rest.substr(0, name_end);
  item.text = trimmed(rest.substr(name_end));
  if (item.name.ends_with(':'))
    item.name.remove_suffix(1);
  for (std::string_view mark : {"- ", ": ", "-- ", "\xE2\x80\x93 ", "\xE2\x80\x94 "})
    if (item.text.starts_with(mark))
      item.text = trimmed(item.text.substr(mark.size()));
  return item;
}
