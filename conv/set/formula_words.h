// The words of formulas.
#pragma once

#include <string>
#include <string_view>

#include "conv/set/formula.h"

namespace Formula {

struct gWord {
  std::string_view name;
  gFormula::Kind kind; // `over`: an accent above what follows
  std::string_view text;
};

// Null if there is no such word.
gWord const * find_word(std::string_view name);
// The letter or digit in the style that a command such as "mathbb" names.
std::string in_style(char letter, std::string_view command);
// Such words draw limits below and above.
bool has_limits(std::string_view text);

} // namespace Formula
