// One walk tells what is to do, and nearly always it is nothing; only a damaged stretch is rebuilt,
// code point by code point.
#include "conv/atc/encoding.h"

#include <array>
#include <cstdint>

namespace {

constexpr std::uint32_t invalid = 0xFFFFFFFF;
constexpr std::uint32_t replacement = 0xFFFD;

// The upper half of the control range in Windows-1252; 0 where it has no character.
constexpr std::array<std::uint16_t, 32> windows_1252 = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

bool is_plain(unsigned char c) {
  return (c >= 0x20 && c < 0x7F) || c == '\n' || c == '\t';
}

bool follows(std::string_view text, std::size_t at) {
  return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

// The code point at `at`, which moves behind it; `invalid` if there is no well-formed sequence.
std::uint32_t decode(std::string_view text, std::size_t & at) {
  auto const byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  unsigned char const first = byte(at);
  int const more = first < 0x80   ? 0
                   : first < 0xC2 ? -1
                   : first < 0xE0 ? 1
                   : first < 0xF0 ? 2
                   : first < 0xF5 ? 3
                                  : -1;
  if (more < 0)
    return invalid;
  std::uint32_t point = more == 0 ? first : first & (0x3F >> more);
  for (int i = 1; i <= more; ++i) {
    if (!follows(text, at + i))
      return invalid;
    point = point << 6 | (byte(at + i) & 0x3F);
  }
  bool const overlong = (more == 2 && point < 0x800) || (more == 3 && point < 0x10000);
  if (overlong || point > 0x10FFFF || (point >= 0xD800 && point < 0xE000))
    return invalid;
  at += more + 1;
  return point;
}

// What no document may hold: control characters and code points that are no characters.
bool is_forbidden(std::uint32_t point) {
  if (point < 0x20 || (point >= 0x7F && point < 0xA0))
    return point != '\n' && point != '\t';
  return (point & 0xFFFE) == 0xFFFE || (point >= 0xFDD0 && point <= 0xFDEF);
}

void append(std::uint32_t point, std::string & out) {
  if (point < 0x80) {
    out += static_cast<char>(point);
    return;
  }
  int const more = point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
  static constexpr unsigned char heads[] = {0, 0xC0, 0xE0, 0xF0};
  out += static_cast<char>(heads[more] | point >> (6 * more));
  for (int i = more - 1; i >= 0; --i)
    out += static_cast<char>(0x80 | (point >> (6 * i) & 0x3F));
}

bool is_utf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    if (static_cast<unsigned char>(text[at]) < 0x80)
      ++at;
    else if (decode(text, at) == invalid)
      return false;
  }
  return true;
}

std::uint32_t next_point(std::string_view text, std::size_t & at, bool utf8) {
  if (utf8)
    return decode(text, at);
  auto const c = static_cast<unsigned char>(text[at++]);
  return c >= 0x80 && c < 0xA0 ? windows_1252[c - 0x80] : c;
}

} // namespace

namespace Atc {

bool is_clean(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    if (is_plain(static_cast<unsigned char>(text[at]))) {
      ++at;
      continue;
    }
    std::uint32_t const point = decode(text, at);
    if (point == invalid || is_forbidden(point))
      return false;
  }
  return true;
}

bool append_utf8(std::string_view text, std::string & out) {
  bool const utf8 = is_utf8(text);
  for (std::size_t at = 0; at < text.size();) {
    std::uint32_t const point = next_point(text, at, utf8);
    if (point == '\r' && at < text.size() && text[at] == '\n')
      continue;
    if (point >= '\v' && point <= '\r')
      out += ' ';
    else
      append(is_forbidden(point) ? replacement : point, out);
  }
  return utf8;
}

} // namespace Atc
