// Everything outside ASCII counts as letters: what it is doesn't matter as long as the same is
// typed.

#include "conv/htm/search_words.h"

#include <algorithm>

#include "conv/htm/slug.h"
#include "vlb/gstring.h"

namespace {

constexpr std::size_t max_word = 60; // bytes

bool is_word(char c) {
  return Vlb::is_word(c) || static_cast<unsigned char>(c) >= 128;
}
bool is_upper(char c) {
  return c >= 'A' && c <= 'Z';
}
bool is_lower(char c) {
  return (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) >= 128;
}

char32_t lower_code(char32_t code) {
  if ((code >= 0xc0 && code <= 0xde && code != 0xd7) || (code >= 0x391 && code <= 0x3a9) ||
      (code >= 0x410 && code <= 0x42f))
    return code + 32;
  if (code >= 0x400 && code <= 0x40f)
    return code + 80;
  if (code >= 0x100 && code <= 0x137 && code % 2 == 0)
    return code + 1;
  return code;
}

void add_utf8(char32_t code, std::string & out) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xc0 | code >> 6);
    out += static_cast<char>(0x80 | (code & 0x3f));
  } else if (code < 0x10000) {
    out += static_cast<char>(0xe0 | code >> 12);
    out += static_cast<char>(0x80 | (code >> 6 & 0x3f));
    out += static_cast<char>(0x80 | (code & 0x3f));
  } else {
    out += static_cast<char>(0xf0 | code >> 18);
    out += static_cast<char>(0x80 | (code >> 12 & 0x3f));
    out += static_cast<char>(0x80 | (code >> 6 & 0x3f));
    out += static_cast<char>(0x80 | (code & 0x3f));
  }
}

// The end of a word cut to the limit, at the start of a character.
std::size_t limited(std::string_view text, std::size_t begin, std::size_t end) {
  if (end - begin <= max_word)
    return end;
  end = begin + max_word;
  while (end > begin && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80)
    --end;
  return end;
}

bool is_one_character(std::string_view word) {
  std::size_t pos = 0;
  Slug::next_code_point(word, pos);
  return pos >= word.size();
}

} // namespace

void SearchWords::lower(std::string_view text, std::string & out) {
  out.clear();
  for (std::size_t pos = 0; pos < text.size();)
    if (static_cast<unsigned char>(text[pos]) < 128)
      out += Vlb::lower(text[pos++]);
    else
      add_utf8(lower_code(Slug::next_code_point(text, pos)), out);
}

void SearchWords::split(std::string_view text, std::vector<std::string_view> & out) {
  out.clear();
  for (std::size_t begin = 0; begin < text.size();) {
    if (!is_word(text[begin])) {
      ++begin;
      continue;
    }
    std::size_t end = begin;
    while (end < text.size() && is_word(text[end]))
      ++end;
    std::string_view const word = text.substr(begin, limited(text, begin, end) - begin);
    if (!is_one_character(word))
      out.push_back(word);
    begin = end;
  }
}

void SearchWords::split_name(std::string_view word, std::vector<std::string_view> & out) {
  out.clear();
  std::size_t begin = 0;
  auto const cut = [&](std::size_t end) {
    if (end > begin + 1)
      out.push_back(word.substr(begin, end - begin));
    begin = end;
  };
  for (std::size_t i = 0; i < word.size(); ++i) {
    bool const hump = i > 0 && is_upper(word[i]) &&
                      (is_lower(word[i - 1]) || Vlb::is_digit(word[i - 1]) ||
                       (i + 1 < word.size() && is_lower(word[i + 1])));
    if (word[i] == '_') {
      cut(i);
      begin = i + 1;
    } else if (hump) {
      cut(i);
    }
  }
  if (begin > 0)
    cut(word.size());
}
