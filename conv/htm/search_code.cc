// Lists are texts in backquotes, where a line feed is one byte and a quote needs no escape.
#include "conv/htm/search_code.h"

#include <charconv>

void SearchCode::add_number(std::uint32_t number, std::string & out, int base) {
  char text[16];
  out.append(text, std::to_chars(text, text + sizeof text, number, base).ptr);
}

void SearchCode::add_quoted(std::string_view text, std::string & out) {
  out += '"';
  for (char const c : text)
    if (c == '"' || c == '\\')
      (out += '\\') += c;
    else if (static_cast<unsigned char>(c) < 32)
      out += ' ';
    else
      out += c;
  out += '"';
}

void SearchCode::add_line(std::string_view text, std::string & out) {
  for (char const c : text)
    if (c == '`' || c == '\\' || c == '$')
      (out += '\\') += c;
    else if (static_cast<unsigned char>(c) < 32)
      out += ' ';
    else
      out += c;
}

std::string_view SearchCode::cut(std::string_view text, std::size_t bytes) {
  if (text.size() <= bytes)
    return text;
  while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xc0) == 0x80)
    --bytes;
  return text.substr(0, bytes);
}
