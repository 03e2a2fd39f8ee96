// Program text in HTML and XML may hold what would be mark-up, in one of two disguises.
#include <algorithm>

#include "ana/comments/html_elements.h"

std::string Html::program_text(std::string_view text) {
  constexpr std::string_view begin = "<![CDATA[", end = "]]>";
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    std::string_view const rest = text.substr(at);
    std::size_t length = 0;
    if (rest.starts_with(begin)) {
      std::size_t const close = std::min(rest.find(end), rest.size());
      result += rest.substr(begin.size(), close - begin.size());
      at += std::min(close + end.size(), rest.size());
    } else if (std::string const character = rest[0] == '&' ? entity_at(rest, length) : "";
               !character.empty()) {
      result += character;
      at += length;
    } else {
      result += text[at++];
    }
  }
  return result;
}
