// Markdown by the examples of CommonMark, whose results are read by our own reader of HTML.

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <regex>

#include "ana/comments/html_elements.h"
#include "ana/comments/markdown.h"

namespace {

// References as in scripts of the mark-up.
std::string joined(gRichPieces const & pieces) {
  std::string text;
  for (gRichPiece const & one : pieces)
    text += one.kind == gRichPiece::code ? one.text : "@cref<" + one.text + ">";
  return text;
}

// Blanks at the ends of lines mean nothing.
std::string normal(std::string const & text) {
  std::string result;
  for (char c : text) {
    if (c == '\n' && (result.empty() || result.back() == '\n'))
      continue;
    if (c == '\n' && result.back() == ' ')
      result.pop_back();
    result += c;
  }
  while (!result.empty() && std::string_view(" \n").find(result.back()) != std::string_view::npos)
    result.pop_back();
  return result;
}

// The text holds blocks of thirty-two backticks: "example", Markdown, a line with a dot, HTML. What
// may differ are tags that aren't in our list, and program text over several blocks of HTML.
TEST(markdown, examples_of_commonmark) {
  char const * const path = std::getenv("VELLUMAR_COMMONMARK");
  if (!path)
    GTEST_SKIP() << "scripts/test_browser fetches the examples and calls this test";
  std::ifstream file(path);
  std::string const fence(32, '`');
  int number = 0, passed = 0;
  for (std::string line; std::getline(file, line);) {
    if (line != fence + " example")
      continue;
    std::string parts[2];
    for (int part = 0; std::getline(file, line) && line != fence;)
      if (line == "." && part == 0)
        ++part;
      else
        parts[part] += std::regex_replace(line, std::regex("\u2192"), "\t") + "\n";
    gRichText wanted, found;
    Html::set_text(parts[1], wanted);
    set_markdown(parts[0], {}, found);
    std::string const made = normal(joined(found.take()));
    ++number;
    if (made == normal(joined(wanted.take())))
      ++passed;
    else
      std::cout << number << ": " << parts[0] << "--\n" << made << "\n\n";
  }
  EXPECT_EQ(number, 652);
  EXPECT_GE(passed, 650);
}

} // namespace
