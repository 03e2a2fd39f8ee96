#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "ana/parser/cpp/cpp_support.h"
#include "ana/parser/doc/dense_cases.h"
#include "ana/parser/pre/cpre_naive.h"

namespace {

// Blanks at the ends of lines matter here, so each line end is shown.
std::string lines_of_copy(std::string const & source) {
  std::istringstream copy(preprocess(take_options(source)));
  std::string out, line;
  for (int number = 1; std::getline(copy, line); ++number)
    out += std::to_string(number) + " " + line + "$\n";
  return out;
}

std::string random_source(std::mt19937 & random) {
  static std::vector<std::string> const words =
      parts_of("/*~*/~//~/**~/** ~///~/// ~*~*~/~|~-~=====~\n~\n~\n~\n\n~ ~  \t~a~word~L~\"~'~\\~#~"
               "#else~#if~#elif~\n#endif~(~)~\\\n~\n  #else~\xC3~'x'~1~*****~****~  # endif~KEEP~"
               "CALL~CALL()~ARGS(~GONE~+ - *~ * ~\"s\"~\\n~\n#define");
  std::string source;
  for (unsigned n = random() % 60; n > 0; --n)
    source += words[random() % words.size()];
  return source;
}

} // namespace

TEST(Preprocessor, MarksCommentsAndDropsDirectives) {
  check_annotated(CASE_DIR "/cpre.cases", lines_of_copy);
}

TEST(Preprocessor, RunsGiveWhatTheSingleRulesGive) {
  std::mt19937 random(1);
  NaiveOptions const variants[] = {
      {.star = true, .slash = true},
      {.frame = " a*\xC3", .line = "w-"},
      {.frame = "", .line = ""},
      {.star = true, .macros = true},
  };
  for (NaiveOptions const & options : variants) {
    std::string lines = "%frame " + options.frame + "\n%line " + options.line + "\n";
    if (options.star)
      lines += "%2star\n";
    if (options.slash)
      lines += "%3slash\n";
    if (options.macros)
      lines += "%macro KEEP 0 0 0\n%macro GONE 0 1 0\n%macro CALL 1 1 0\n%macro ARGS 1 2 0\n";
    take_options(lines);
    for (int n = 0; n < 400; ++n) {
      std::string source = random_source(random);
      if (options.macros) // an argument list without an end is a row of reports
        source += ")";
      ASSERT_EQ(preprocess(source), naive_preprocess(source, options)) << source;
    }
  }
}

TEST(Preprocessor, KeepsTheNumberOfLines) {
  std::mt19937 random(2);
  take_options("");
  for (int n = 0; n < 2000; ++n) {
    std::string source = random_source(random);
    // A continued #else or #endif takes its lines with it.
    std::erase(source, '\\');
    std::string const copy = preprocess(source);
    ASSERT_EQ(std::count(source.begin(), source.end(), '\n'),
              std::count(copy.begin(), copy.end(), '\n'))
        << source;
  }
}

TEST(Preprocessor, TakesLongStretchesInPiecesAndEndsAnywhere) {
  take_options("");
  std::string const blanks(5000, ' ');
  std::string const stars(5000, '*');
  std::string const words = "a b" + std::string(5000, 'c');
  std::string const code = std::string(1020, ' ') + "longword" + blanks + "\n";
  struct {
    std::string source, expected;
  } const cases[] = {
      {code + blanks + "\n;", code + blanks + "\n;"},
      {std::string(5000, '\n') + "#if\n;", std::string(5001, '\n') + ";"},
      {"#define " + words + "\n;", "\n;"},
      {"#else " + words + "\\\n" + words + "\n" + words + "\n#endif " + words + "\n;", "\n\n\n;"},
      {"/*" + stars + "*/;", "@_vlbcom @_vlecom ;"},
      {"/* " + words + blanks + "x*/;", "@_vlbcom  " + words + blanks + "x@_vlecom ;"},
  };
  for (auto const & [source, expected] : cases)
    EXPECT_EQ(preprocess(source), expected);
}

TEST(Preprocessor, GivesUpOnWordsAndLiteralsBeyondTheLimit) {
  take_options("");
  std::string const word(1023, 'w'), literal = "\"" + word.substr(2) + "\"";
  for (std::string const & good : {" a " + word + ";", "12" + word + ";", literal + ";"})
    EXPECT_EQ(preprocess(good), good);
  for (std::string const & bad : {" a w" + word + ";", "12w" + word, "'\\" + literal + "'"})
    EXPECT_EQ(preprocess(bad), "FATAL ERROR: Token buffer overflow in the scanner");
}
