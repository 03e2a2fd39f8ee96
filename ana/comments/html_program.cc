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

// The lines of "<pre>...</pre>", with the language that "<code>" in it names; the length of all.
std::size_t Html::set_program(std::string_view text, gRichText & out) {
  std::size_t const begin = tag_at(text).length;
  std::size_t const end = text.find("</pre>", begin);
  if (end == text.npos)
    return 0;
  std::string_view inner = text.substr(begin, end - begin);
  std::string lines, language;
  for (std::size_t length = 0; !inner.empty(); inner.remove_prefix(length)) {
    gHtmlTag const tag = inner[0] == '<' ? tag_at(inner) : gHtmlTag();
    length = tag.length;
    if (tag.name == "code" && !tag.closing)
      language = attribute(tag.attributes, "class");
    if (length > 0 && is_known(tag.name))
      continue;
    std::string const character = inner[0] == '&' ? entity_at(inner, length) : std::string();
    lines += inner[0] == '&' && length > 0 ? character : inner.substr(0, 1);
    length = std::max<std::size_t>(inner[0] == '&' ? length : 0, 1);
  }
  lines.erase(0, lines.starts_with('\n'));
  constexpr std::string_view prefix = "language-";
  out.block(lines, language.starts_with(prefix) ? language.substr(prefix.size()) : "");
  return end + std::string_view("</pre>").size();
}

void Html::set_text(std::string_view text, gRichText & out) {
  bool closed_pre = true; // none is looked for twice
  while (!text.empty()) {
    std::size_t const plain = std::min(text.find_first_of("<&"), text.size());
    out.text(text.substr(0, plain));
    text.remove_prefix(plain);
    if (text.empty())
      return;
    std::size_t length = 0;
    if (text[0] == '<') {
      gHtmlTag const tag = tag_at(text);
      if (tag.name == "pre" && tag.length > 0 && !tag.closing && closed_pre) {
        length = set_program(text, out);
        closed_pre = length > 0;
      }
      if (length == 0 && tag.length > 0 && set(tag, out))
        length = tag.length;
    } else if (std::string const character = entity_at(text, length); length > 0) {
      out.text(character);
    }
    if (length == 0)
      out.text(text.substr(0, 1));
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
}
