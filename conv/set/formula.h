// Formulas in TeX: what they consist of, for targets to set.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct gFormula {
  enum Kind {
    row,
    identifier, // one letter, or the name of a function
    number,
    sign, // operators, relations, brackets
    words,
    space,    // as wide as a letter
    fraction, // above, below; without a line if `text` says so
    root,     // of what, and perhaps the degree
    scripts,  // base, foot, head; an empty row for none
    limits,   // the same, below and above the base
    over,     // base, accent
    under,
    table, // rows of rows
  };
  Kind kind = row;
  std::string text;
  std::vector<gFormula> parts;
};

namespace Formula {

// Nothing where the formula has a word that isn't known, which `unknown` tells, or is damaged.
std::optional<gFormula> parse(std::string_view source, std::string & unknown);
// As readable as one line of text can be.
std::string plain(gFormula const & formula);

} // namespace Formula
