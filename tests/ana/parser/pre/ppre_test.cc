#include <random>

#include <gtest/gtest.h>

#include "ana/anadat/input_table.h"
#include "ana/parser/doc/dense_cases.h"
#include "ana/parser/pre/ppre_naive.h"
#include "ana/parser/pre/ppre_scan.h"
#include "app/options/options.h"
#include "vlb/gexception.h"

namespace {

class TextPreprocessor : public ppre_scan {
public:
  using ppre_scan::ppre_scan;
  void ECHO(char c) const override { out += c; }
  void ECHO(char const * text) const override { out += text; }
  void ECHO(std::string const & text) const override { out += text; }
  void ECHO(std::string_view text) const override { out += text; }
  mutable std::string out;
};

// The marked copy of a source, or the text of the fault that ended it.
std::string preprocess(std::string const & source, NaiveOptions const & options) {
  cMapObj & ana = Vapp::options.submap("ana");
  ana.set("spt_2star", cat::make(options.star));
  ana.set("spt_3slash", cat::make(options.slash));
  ana.set("pas_frame", cat::make(options.frame));
  ana.set("pas_line", cat::make(options.line));
  gInput.set(Vapp::run_input());
  TextPreprocessor scanner(1024);
  scanner.reset();
  scanner.open_text(gSrcFile(gPathstring("a.pas"), gPathstring(), 1), source);
  try {
    EXPECT_EQ(scanner.scan(), 0);
  } catch (gExcFatalErr const & fault) {
    return fault.what();
  }
  return scanner.out;
}

// Blanks at the ends of lines matter here, so each line end is shown.
std::string lines_of_copy(std::string const & source) {
  bool const special = source.starts_with("%special\n");
  std::istringstream copy(
      preprocess(source.substr(special ? 9 : 0), {.star = special, .slash = special}));
  std::string out, line;
  for (int number = 1; std::getline(copy, line); ++number)
    out += std::to_string(number) + " " + line + "$\n";
  return out;
}

std::string random_source(std::mt19937 & random) {
  static char const * const parts[] = {
      "(*",   "*)",   "(** ", "{",     "}",  "//",   "/// ", "/",    "(",    ")",
      "*",    "****", "'",    "\n",    "\n", "\n\n", " ",    "  ",   "\t",   "a",
      "word", "|",    "-",    "=====", ";",  "\xC3", "' {'", "(**)", "f(x)", " \n"};
  std::string source;
  for (unsigned n = random() % 60; n > 0; --n)
    source += parts[random() % std::size(parts)];
  return source;
}

} // namespace

TEST(PascalPreprocessor, MarksComments) {
  check_annotated(CASE_DIR "/ppre.cases", lines_of_copy);
}

TEST(PascalPreprocessor, RunsGiveWhatTheSingleRulesGive) {
  std::mt19937 random(1);
  for (NaiveOptions const & options :
       {NaiveOptions{.star = true, .slash = true}, NaiveOptions{.frame = " a*\xC3(", .line = "w-'"},
        NaiveOptions{.frame = "", .line = ""}})
    for (int n = 0; n < 3000; ++n) {
      std::string const source = random_source(random);
      ASSERT_EQ(preprocess(source, options), (Naive{.in = source, .options = options}.run()))
          << source;
    }
}

TEST(PascalPreprocessor, TakesLongStretchesInPiecesAndNestsToAnyDepth) {
  std::string const blanks(5000, ' '), word(5000, 'c'), stars(5000, '*'), quote(1021, 'q');
  std::string deep;
  for (int i = 0; i < 5000; ++i)
    deep += "(*\n{\n";
  struct {
    std::string source, expected;
  } const cases[] = {
      {word + blanks + "\n'(*" + word, "Token buffer overflow"},
      {"'" + quote + "';\n" + word, "'" + quote + "';\n" + word},
      {std::string(5000, '(') + "*" + stars + "*);", "(((@_vlbcom @_vlecom ;"},
      {"{ " + word + blanks + "x}" + blanks + "\n" + blanks + "\n{}",
       " " + word + blanks + "x@_vlecom " + blanks + "\n" + blanks + "\n@_vlbcom @_vlecom "},
      {deep + "x", "@_vlbcom " + std::string(10000, '\n') + "x"},
  };
  for (auto const & [source, expected] : cases)
    EXPECT_NE(preprocess(source, {}).find(expected), std::string::npos) << expected.size();
}
