// What the text-unit scanner and parser make of marked comments, by case files.
#include <random>

#include <gtest/gtest.h>

#include "ana/anadat/tables.h"
#include "ana/parser/doc/dense_cases.h"
#include "ana/parser/doc/doc_support.h"
#include "vlb/parse/grammar_conflicts.h"

namespace {

TEST(DocParse, AnswersOfTheCaseFiles) {
  check_annotated(CASE_DIR "/tokens.cases", tokens_of);
  for (char const * file : {"/heads.cases", "/units.cases", "/elements.cases"})
    check_annotated(std::string(CASE_DIR) + file, units_of);
}

TEST(DocParse, ConflictsAreThoseThatShiftsSolve) {
  EXPECT_EQ(grammar_conflicts("doc_l"), "113 shift/reduce, 0 reduce/reduce");
}

// One reader reads the texts in turn, as the stage does; answers what the last one gives.
std::string last_of(std::vector<std::string> texts) {
  DocWorld world;
  gReadInput const input;
  gFileReader reader(input);
  gFileFacts facts;
  for (std::string & text : texts) {
    facts = {};
    world.outside.reports.clear();
    gSrcFile const file = world.prepare(text);
    try {
      facts = read_text(reader, file, text);
    } catch (gExcFatalErr const & fault) {
      world.outside.reports.push_back(fault.text());
    }
  }
  std::string result;
  for (gUnitFacts const & unit : facts.text.units)
    for (auto const & subentry : unit.subentries)
      result += subentry.name + ": " + show(subentry.text) + "\n";
  return result + world.outside.report_text();
}

TEST(DocParse, NothingLeaksFromOneFileToTheNext) {
  std::string const plain = "/* @f a\n- b */";
  std::string const alone = last_of({plain});
  EXPECT_EQ(alone, "@description:  |a| |@b_enum<>\\n@enum |b| |@e_enum\\n\n");
  for (char const * before : {
           "/* @f @enumstyle<x> */",             // a style
           "/* @f @b_table @columns<1cm> @row ", // in a table
           "/* @f @code x\n\n y @b ",            // verbatim
           "/* @f x @em{@b{",                    // in parameters
           "/* @f @enum a @e_table */ /*",       // an open list
           "/* @s a subject line",               // in a subject line
           "/* @f @xe<a\nb",                     // a warning given
           "/* @f \xb4"
           "code", // in code text
       })
    EXPECT_EQ(last_of({before, plain}), alone) << before;
  EXPECT_EQ(last_of({"/* @b_cite<c> */", "/* @e_cite */"}),
            "ERROR 110: No source citation open (a.cpp:1)\n");
}

// Fragments of the language in any order, as broken sources have them.
TEST(DocParse, ReadsAnythingAndForgetsIt) {
  std::string const fragments =
      "/*~*/~@f~@d ~@n ~@l ~@s ~@x ~Unit:~Return:~@return~@sline~@code~@end~ ~\n~\n\n~a~word "
      "~(~)~<~>"
      "~{~}~,~=~==~:~::~;~\\~$name~$~@em~@em{~@cref<~@xe<~@b_table ~@e_table~@row ~- ~-. ~@columns"
      "~@cell{~@b_verbatim~@e_verbatim~@enum "
      "~@endp~\xb4~\xb4\xb4~@hdline{~@b_cite<c>~@e_cite~@sub1{"
      "~class ~template<~operator ~@~@_vl~@style<s>~@classhierarchy~\x01~";
  std::vector<std::string> parts;
  for (std::size_t at = 0, end; (end = fragments.find('~', at)) != fragments.npos; at = end + 1)
    parts.push_back(fragments.substr(at, end - at));
  std::string const plain = "/* @f a\n- b */";
  std::string const alone = last_of({plain});
  std::mt19937 random(1);
  for (int round = 0; round < 500; ++round) {
    std::string soup = "/*";
    for (int i = 0; i < 120; ++i)
      soup += parts[random() % parts.size()];
    ASSERT_EQ(last_of({soup, plain}), alone) << soup;
  }
}

// What a long or broken input gives: the end of a fatal error, or the number of units.
std::string outcome(std::string const & text) {
  DocWorld world;
  gReadInput const input;
  gFileReader reader(input);
  try {
    gFileFacts const facts =
        read_text(reader, gSrcFile(gPathstring("a.cpp"), gPathstring(), 1), text);
    return (facts.text.end.failed ? "failed " : "read ") + std::to_string(facts.text.units.size());
  } catch (gExcFatalErr const & fault) {
    return fault.text();
  }
}

std::string many(std::size_t count, std::string const & text) {
  std::string result;
  for (std::size_t i = 0; i < count; ++i)
    result += text;
  return result;
}

TEST(DocParse, WorstInputs) {
  std::string const overflow = "FATAL ERROR: Token buffer overflow in the scanner";
  struct {
    std::string text, outcome;
  } const cases[] = {
      {marked("/* @f " + many(100'000, "{") + " */"), overflow},
      {marked("/* @f " + many(100'000, "@em{") + " */"),
       "FATAL ERROR: Stack overflow in the parser"},
      {marked("/* @f " + std::string(1023, 'x') + " */"), "read 1"},
      {marked("/* @f " + std::string(1024, 'x') + " */"), overflow},
      {marked("/* @f" + many(100'000, " @em{a}\n- b\n") + "*/"), "read 1"},
      {marked("/* free" + std::string(5000, '\n') + "Unit: x */"), "read 1"},
      {marked("/* @f x */ /* @f @em{never closed"), "failed 1"},
      {marked("/* @f x */ /* @f @b_verbatim never closed\n\n@em{x} */"), "failed 1"},
      {marked("/* @f ") + std::string("a\0b", 3) + marked(" */"), "read 1"},
  };
  for (auto const & one : cases)
    EXPECT_EQ(outcome(one.text), one.outcome) << one.text.substr(0, 60);
}

TEST(DocParse, QuotesOfCodeTextInUtf8) {
  std::string const text = "/* @f \u00b4a,b\u00b4 \u00d4\u0134 \uff01 */";
  EXPECT_EQ(last_of({text}), "@description:  |@code{|a\\,b|} | |\u00d4\u0134| |\uff01| \n");
}

} // namespace
