// RTF is text of 7 bits: what lies above is written by number, in UTF-16.

#include "conv/rtf/rtf_text.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>

#include "conv/rtf/rtf_codepage.h"
#include "vlb/gstring.h"

namespace {

// What doesn't know Unicode passes over the number and shows what stands behind it.
void add_unit(std::uint32_t unit, std::string & out) {
  out += "\\u" + std::to_string(static_cast<std::int16_t>(unit));
  if (unsigned char const byte = Rtf::windows_1252(unit)) {
    constexpr char digits[] = "0123456789abcdef";
    ((out += "\\'") += digits[byte >> 4]) += digits[byte & 15];
  } else {
    out += '?';
  }
}

void add_code_point(std::uint32_t code, std::string & out) {
  if (code == 0xA0) {
    out += "\\~";
  } else if (code < 0x10000) {
    add_unit(code, out);
  } else {
    add_unit(0xD800 + ((code - 0x10000) >> 10), out);
    add_unit(0xDC00 + ((code - 0x10000) & 0x3FF), out);
  }
}

void escape_with(std::string_view text, std::string_view line_end, std::string & out) {
  for (std::size_t pos = 0; pos < text.size();) {
    char const c = text[pos];
    if (static_cast<unsigned char>(c) >= 0x80) {
      add_code_point(Rtf::take_code_point(text, pos), out);
      continue;
    }
    ++pos;
    if (c == '\\' || c == '{' || c == '}')
      (out += '\\') += c;
    else if (c == '\n')
      out += line_end;
    else if (c == '\t')
      out += "\\tab ";
    else if (c > '\x1F' && c != '\x7F')
      out += c;
    else // from a title or an option; elsewhere there are none
      add_code_point(0xFFFD, out);
  }
}

} // namespace

void Rtf::escape(std::string_view text, std::string & out) {
  escape_with(text, " ", out);
}

void Rtf::escape_lines(std::string_view text, std::string & out) {
  while (text.ends_with('\n'))
    text.remove_suffix(1);
  escape_with(text, "\\line\n", out);
}

std::string Rtf::bookmark(std::string_view name) {
  constexpr std::size_t longest = 40, digits = 6;
  std::string valid = name.empty() || !Vlb::is_letter(name[0]) ? "B_" : "";
  for (char const c : name)
    valid += Vlb::is_word(c) ? c : '_';
  if (valid == name && name.size() <= longest)
    return valid;
  // What became of different names must not be the same.
  std::uint32_t hash = 2166136261u;
  for (char const c : name)
    hash = (hash ^ static_cast<unsigned char>(Vlb::upper(c))) * 16777619u;
  char number[digits + 2];
  std::snprintf(number, sizeof number, "_%06X", (hash >> 8 ^ hash) & 0xFFFFFF);
  return valid.substr(0, longest - digits - 1) + number;
}

int Rtf::twips(std::string_view width) {
  struct {
    std::string_view name;
    double size;
  } const units[] = {{"cm", 1440 / 2.54}, {"mm", 144 / 2.54}, {"in", 1440}, {"pt", 20}, {"", 20}};
  double number = 0;
  char const * const end = width.data() + width.size();
  auto const [rest, error] = std::from_chars(width.data(), end, number);
  bool const usable = number >= 0 && number <= 10000; // "nan" is a number, too
  if (error != std::errc() || !usable)
    return -1;
  std::string_view const unit(rest, static_cast<std::size_t>(end - rest));
  for (auto const & known : units) {
    if (unit == known.name)
      return static_cast<int>(std::lround(number * known.size));
  }
  return -1;
}
