// The text of the system: bytes in the encoding of the sources.
#pragma once

#include <string>
#include <string_view>

#include "vlb/shared.h"

// A mark of one byte, which lies where the count leaves room: it costs no memory.
class cMarked : public cShared {
public:
  unsigned char mark() const { return mark_; }
  void set_mark(unsigned char mark) { mark_ = mark; }

private:
  unsigned char mark_ = 0;
};

// A standard string that can be held by cRef<gString>. Its mark tells what the text is to those who
// made it (0: nothing but text); copies have it too, and text that is put together hasn't. Nothing
// here decodes multi-byte text:
// case and white space are those of ASCII (white space: the blank and the characters 9 to 13).
class gString : public cMarked, public std::string {
public:
  gString() = default;
  gString(char const * text) : std::string(text) {}
  gString(std::string const & text) : std::string(text) {}
  gString(std::string && text) noexcept : std::string(std::move(text)) {}
  explicit gString(std::string_view text) : std::string(text) {}
  gString(gString const &) = default;
  gString(gString && other) noexcept : cMarked(other), std::string(std::move(other)) {}
  gString & operator=(gString const & other) {
    std::string::operator=(other);
    set_mark(other.mark());
    return *this;
  }
  gString & operator=(gString && other) noexcept {
    set_mark(other.mark());
    std::string::operator=(std::move(other));
    return *this;
  }

  gString & operator+=(char const * text) {
    std::string::append(text);
    return *this;
  }
  gString & operator+=(std::string const & text) {
    std::string::append(text);
    return *this;
  }
  gString & operator+=(std::string_view text) {
    std::string::append(text);
    return *this;
  }
  gString & operator+=(char c) {
    std::string::push_back(c);
    return *this;
  }
  gString & prepend(char c);
  gString & prepend(char const * text);
  gString & prepend(std::string const & text);

  gString & tolower();
  gString & toupper();
  // Comparison without regard to the case of ASCII letters; the sign is that of strcmp.
  int compare_i(gString const & other) const;

  // True if the string is empty or holds white space only.
  bool wsp_only() const;
  gString & wsp_rmleft();
  gString & wsp_rmright();
  // Removes white space at both ends and reduces each run inside to one blank.
  gString & wsp_trim();
  // The form in which declarations and identifiers are stored; the same as wsp_trim.
  gString & wsp_norm();

  // Puts `esc` in front of each character that stands in `set`.
  gString & escape(gString const & set, char esc);
  // Removes each `esc` and keeps the character behind it.
  gString & unescape(char esc);
};

namespace Vlb {

inline bool is_space(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}
inline bool is_digit(char c) {
  return c >= '0' && c <= '9';
}
inline bool is_letter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
// A letter, a digit or "_".
inline bool is_word(char c) {
  return is_letter(c) || is_digit(c) || c == '_';
}
inline char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}
inline char upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

// strcmp without regard to the case of ASCII letters.
int compare_i(std::string_view a, std::string_view b);
std::string to_lower(std::string_view text);
std::string to_upper(std::string_view text);

// A text for the intermediate code: `\` in front of each of , > } @ and \.
gString escape_atc(std::string_view text);

} // namespace Vlb

// A string of the parsers.
class gPString : public gString {
public:
  using gString::gString;
  gPString() = default;
  // Escapes the text for the intermediate code, in place.
  gPString & escape_atc();
};

// A number turned into text.
class mString : public gString {
public:
  explicit mString(long value, int width = 0, char fill = ' ');
};
