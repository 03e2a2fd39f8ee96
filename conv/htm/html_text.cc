// Stretches without special characters are copied whole, since most text has none.

#include "conv/htm/html_text.h"

#include "vlb/gstring.h"

void Html::escape(std::string_view text, std::string & out) {
  std::size_t begin = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char const c = text[i];
    if (c > '>' || (c != '&' && c != '<' && c != '>' && c != '"'))
      continue;
    out += text.substr(begin, i - begin);
    out += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : "&quot;";
    begin = i + 1;
  }
  out += text.substr(begin);
}

std::string Html::breakable(std::string_view name) {
  constexpr std::size_t wide = 22; // characters of a column
  std::string out;
  if (name.size() <= wide)
    return escaped(name);
  for (std::size_t begin = 0; begin < name.size();) {
    std::size_t end = begin + 1;
    auto const ends_word = [&] {
      char const last = name[end - 1], next = name[end];
      bool const hump = Vlb::lower(last) == last && Vlb::is_letter(last) && Vlb::is_letter(next) &&
                        Vlb::upper(next) == next;
      return (!Vlb::is_letter(last) && Vlb::is_letter(next) && last != '~') || hump;
    };
    while (end < name.size() && !ends_word())
      ++end;
    escape(name.substr(begin, end - begin), out);
    if (end < name.size())
      out += "<wbr>";
    begin = end;
  }
  return out;
}

std::string Html::escaped(std::string_view text) {
  std::string out;
  escape(text, out);
  return out;
}
