// Quotes look alike at both ends, and dashes and slashes stand between words or alone; what is on
// their other side tells what they are.
#include "conv/atc/word_joints.h"

#include "vlb/gstring.h"

namespace {

constexpr std::string_view quotes[] = {"\"",     "'",      "\u2018", "\u2019", "\u201A",
                                       "\u201C", "\u201D", "\u201E", "\u00AB", "\u00BB"};

bool is_one_of(char c, std::string_view set) {
  return set.find(c) != set.npos;
}

bool begins_word(char c) {
  return Vlb::is_word(c) || static_cast<unsigned char>(c) >= 0x80;
}

// x's, but not x 'so'
bool is_genitive(std::string_view quote, std::string_view rest) {
  return (quote == "'" || quote == "\u2019") && rest[0] == 's' &&
         (rest.size() == 1 || !begins_word(rest[1]));
}

} // namespace

bool Atc::joins_next(std::string_view text) {
  for (std::string_view quote : quotes)
    if (text.ends_with(quote)) {
      text.remove_suffix(quote.size());
      return text.empty() || is_one_of(text.back(), " ([{-/");
    }
  if (is_one_of(text.back(), "-/<"))
    return text.size() == 1 || text[text.size() - 2] != ' ';
  return is_one_of(text.back(), " ([{~") || text.ends_with("::");
}

bool Atc::joins_last(std::string_view text) {
  for (std::string_view quote : quotes)
    if (text.starts_with(quote)) {
      text.remove_prefix(quote.size());
      bool const opens = !text.empty() && (begins_word(text[0]) || is_one_of(text[0], "([{"));
      return !opens || is_genitive(quote, text);
    }
  if (is_one_of(text.front(), "-/>"))
    return text.size() == 1 || text[1] != ' ';
  return is_one_of(text.front(), " .,;:!?)]}") || text.starts_with("\u2026");
}
