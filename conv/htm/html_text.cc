// Stretches without special characters are copied whole, since most text has none.

#include "conv/htm/html_text.h"

void Html::escape(std::string_view text, std::string & out) {
  std::size_t begin = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char const c = text[i];
    if (c != '&' && c != '<' && c != '>' && c != '"')
      continue;
    out += text.substr(begin, i - begin);
    out += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : "&quot;";
    begin = i + 1;
  }
  out += text.substr(begin);
}

std::string Html::escaped(std::string_view text) {
  std::string out;
  escape(text, out);
  return out;
}
