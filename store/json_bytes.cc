#include "store/json_bytes.h"

namespace {

bool is_continuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// The length of the character at the start of `text`; 0 if it is malformed, overlong, a surrogate
// or beyond the last character.
std::size_t character_length(std::string_view text) {
  auto const byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  unsigned char const lead = byte(0);
  if (lead < 0x80)
    return 1;
  std::size_t const length = lead < 0xC2   ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF5 ? 4
                                           : 0;
  if (length == 0 || text.size() < length)
    return 0;
  for (std::size_t i = 1; i < length; ++i)
    if (!is_continuation(text[i]))
      return 0;
  bool const bad_second = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xED && byte(1) > 0x9F) ||
                          (lead == 0xF0 && byte(1) < 0x90) || (lead == 0xF4 && byte(1) > 0x8F);
  return bad_second ? 0 : length;
}

} // namespace

bool is_utf8(std::string_view text) {
  while (!text.empty()) {
    std::size_t const length = character_length(text);
    if (length == 0)
      return false;
    text.remove_prefix(length);
  }
  return true;
}

std::string bytes_to_utf8(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() * 2);
  for (char c : bytes) {
    auto const byte = static_cast<unsigned char>(c);
    if (byte >= 0x80)
      text += static_cast<char>(0xC0 | (byte >> 6));
    text += static_cast<char>(byte < 0x80 ? byte : 0x80 | (byte & 0x3F));
  }
  return text;
}

bool utf8_to_bytes(std::string_view text, std::string & bytes) {
  bytes.clear();
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto byte = static_cast<unsigned char>(text[i]);
    if (byte >= 0x80) {
      if ((byte != 0xC2 && byte != 0xC3) || i + 1 == text.size() || !is_continuation(text[i + 1]))
        return false;
      byte = static_cast<unsigned char>((byte << 6) | (text[++i] & 0x3F));
    }
    bytes += static_cast<char>(byte);
  }
  return true;
}
