// What formulas are understood, as text and as MathML.

#include <gtest/gtest.h>

#include "conv/set/formula.h"

namespace {

std::string plain(std::string const & source) {
  std::string unknown;
  std::optional<gFormula> const formula = Formula::parse(source, unknown);
  return formula ? Formula::plain(*formula) : "? " + unknown;
}

TEST(formula, is_readable_in_a_line_of_text) {
  struct {
    char const *source, *text;
  } const rows[] = {
      {"a_i^2+b", "a_i^2 + b"},
      {"\\frac{a+b}{2}", "(a + b)/2"},
      {"{n \\over k}", "n/k"},
      {"\\sqrt[3]{x}", "3√x"},
      {"\\sum_{i=0}^{n-1} x_i", " ∑ _(i = 0)^(n − 1)x_i"},
      {"f''(x)^2", "f′′(x)^2"},
      {"\\mathbb{R}^n \\mathcal{L}", "ℝ^nℒ"},
      {"\\hat{x} \\le \\max(a, b)", "x^ ≤ max (a,b)"},
      {"\\left( \\begin{array}{cc} a & b \\\\ c & d \\end{array} \\right]", "(a b; c d]"},
      {"\\begin{align*} x &= 1 \\\\ y &= 2 \\\\ \\end{align*}", "x = 1; y = 2"},
      {"a \\\\ b", "a; b"},
      {"\\text{if } x > 0 \\label{eq}", "if x > 0"},
      {"\\unknown x", "? \\unknown"},
      {"\\begin{tikz} x \\end{tikz}", "? \\begin{tikz}"},
      {"{a", "? "},
      {"a}", "? "},
      {"x_1_2", "? "},
      {"\\left( x", "? "},
      {"\\frac{a}", "? "},
      {"\\", "? \\"},
  };
  for (auto const & row : rows) {
    std::string text = row.text;
    text.erase(0, text.find_first_not_of(' '));
    std::string made = plain(row.source);
    made.erase(0, made.find_first_not_of(' '));
    EXPECT_EQ(made, text) << row.source;
  }
}

std::string repeated(std::string const & text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i)
    all += text;
  return all;
}

// Nothing here is a formula that anybody reads; none may cost more than a look.
TEST(formula, is_read_in_linear_time_and_bounded_depth) {
  for (char const * part : {"{", "\\frac", "\\hat", "x^{", "\\left(", "\\begin{matrix}", "\\sqrt[",
                            "\\over", "'", "&", "\\\\", "_", "\\bf", "\\text{a}", "{\\bf"})
    plain(repeated(part, 5000));
  EXPECT_EQ(plain(repeated("{", 50) + "x" + repeated("}", 50)), "x");
  EXPECT_EQ(plain(repeated("{", 5000) + "x" + repeated("}", 5000)), "? ");
}

} // namespace
