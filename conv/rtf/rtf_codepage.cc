// Help compilers and their project files know nothing of Unicode.

#include "conv/rtf/rtf_codepage.h"

#include <algorithm>
#include <array>

namespace {

// What stands at 0x80 to 0x9F; elsewhere byte and code point are the same number.
constexpr std::array<std::uint16_t, 32> upper_controls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

} // namespace

std::uint32_t Rtf::take_code_point(std::string_view text, std::size_t & pos) {
  auto const lead = static_cast<unsigned char>(text[pos++]);
  int const more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
  std::uint32_t code = more == 3   ? lead & 0x07u
                       : more == 2 ? lead & 0x0Fu
                       : more      ? lead & 0x1Fu
                                   : lead;
  for (int i = 0; i < more && pos < text.size(); ++i)
    code = code << 6 | (static_cast<unsigned char>(text[pos++]) & 0x3Fu);
  return code;
}

unsigned char Rtf::windows_1252(std::uint32_t code) {
  if (code < 0x80 || (code >= 0xA0 && code <= 0xFF))
    return static_cast<unsigned char>(code);
  auto const found = std::ranges::find(upper_controls, code);
  return found == upper_controls.end()
             ? 0
             : static_cast<unsigned char>(0x80 + (found - upper_controls.begin()));
}

std::string Rtf::to_windows_1252(std::string_view text) {
  std::string out;
  for (std::size_t pos = 0; pos < text.size();) {
    unsigned char const byte = windows_1252(take_code_point(text, pos));
    out += byte ? static_cast<char>(byte) : '?';
  }
  return out;
}
