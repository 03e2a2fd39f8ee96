// Bodies of routines lie between "begin" and "end". What is declared in front of "implementation"
// is defined behind it, so all of that part can go.
#include "ana/foreign_pascal.h"

#include <algorithm>

#include "vlb/gstring.h"

void gForeignPascal::read(std::string_view text, std::size_t begin, std::size_t end) {
  std::string_view const code = text.substr(0, end);
  for (std::size_t at = begin; at < end;) {
    if (code[at] == '\'') {
      std::size_t const quote = code.find_first_of("'\n", at + 1);
      at = std::min(quote, end - 1) + 1;
      continue;
    }
    std::size_t behind = at;
    while (behind < end && Vlb::is_word(code[behind]))
      ++behind;
    if (behind > at)
      take_word(text, at, behind);
    at = std::max(behind, at + 1);
  }
}

void gForeignPascal::take_word(std::string_view text, std::size_t begin, std::size_t end) {
  std::string const word = Vlb::to_lower(text.substr(begin, end - begin));
  if (word == "begin" || word == "asm" || (depth_ > 0 && (word == "case" || word == "try")))
    ++depth_;
  else if (word == "implementation" && !in_implementation())
    implementation_.begin = end;
  if (word != "end")
    return;
  depth_ -= depth_ > 0;
  std::size_t const behind = std::min(text.find_first_not_of(" \t\n", end), text.size());
  if (in_implementation() && text.substr(behind).starts_with('.'))
    implementation_.end = begin;
}
