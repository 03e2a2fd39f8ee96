#include <gtest/gtest.h>

#include "ana/anadat/tables.h"
#include "ana/parser/doc/dense_cases.h"
#include "ana/read/enter.h"
#include "ana/read/read_file.h"
#include "support/test_outside.h"
#include "vlb/gexception.h"
#include "vlb/parse/grammar_conflicts.h"

namespace {

gSrcFile source_file() {
  gSrcFile::set_pas_ext("pas");
  return {gPathstring("a.pas"), gPathstring(), 1};
}

std::string results() {
  std::ostringstream out;
  if (auto const * elements = gCodeElems.map_of(source_file()))
    for (auto const & [place, element] : *elements)
      out << place.line << " " << unit_type_name(element->type) << " " << element->name() << " "
          << element->visibility << " [" << element->decl << "]"
          << (element->heritage.empty() ? "" : " <" + element->heritage + ">") << "\n";
  if (auto const * comments = gComments.map_of(source_file()))
    for (auto const & [place, comment] : *comments)
      out << "comment " << place.line << "-" << comment->last_line() << "\n";
  for (auto const & entry : gPasClasses)
    out << "class " << entry.key << " <" << entry.value->make_string() << ">\n";
  return out.str();
}

// What a file leaves: elements by line, comments, classes with a base, reports, and how it ended
// if it failed.
std::string parse(std::string_view text) {
  static gReadInput const input;
  static gFileReader reader(input); // the next file mustn't see anything of the one before
  TestOutside outside;
  gFileFacts facts;
  facts.file = source_file();
  reader.read_code(facts, &text);
  enter_code(facts);
  facts.code.reports.hand_on(Msg::log);
  std::string end;
  if (facts.code.end.fatal)
    end = facts.code.end.fatal->message->text;
  else if (facts.code.end.failed)
    end = "result 1";
  if (!end.empty())
    end += "\n";
  std::string const out = results() + dense_reports(outside.reports) + end;
  gCodeElems.reset();
  gComments.reset();
  gPasClasses.reset();
  return out;
}

std::string repeated(int n, std::string const & text) {
  std::string all;
  for (; n > 0; --n)
    all += text;
  return all;
}

} // namespace

TEST(PasParser, LeavesTheElementsOfDeclarations) {
  check_annotated(CASE_DIR "/pas_elements.cases",
                  [](std::string const & input) { return parse(input); });
}

TEST(PasParser, AFileCutOffAnywhereEndsAndLeavesWhatItHadDeclared) {
  std::string const unit =
      "unit U; interface uses A, B;\ntype E = (one, two);\nT = class(B)\npublic\na: 1..9;\n"
      "property P[i: Integer]: E read FP default one;\nend;\nR = record case x: Byte of 0: () end "
      "end;\nconst c: array[1..2] of Char = ('a', #13);\nimplementation\nprocedure T.m(var x);\n"
      "begin case x of 1: try { } finally end; end end;\nfunction f: E; external 'l' index 3;\n"
      "initialization x := 'end'; end.";
  std::size_t declared = 0;
  for (std::size_t length = 1; length < unit.size(); ++length) {
    std::string const part = parse(unit.substr(0, length));
    EXPECT_TRUE(part.find("result 1\n") != part.npos || part.find("FATAL") != part.npos) << part;
    auto const lines = std::count(part.begin(), part.end(), '\n');
    std::size_t const faults = part.find("result 1\n") == part.npos ? 1 : 2;
    EXPECT_GE(lines - faults, declared) << part;
    declared = lines - faults;
  }
  EXPECT_EQ(declared, 9u);
  EXPECT_EQ(std::ranges::count(parse(unit), '\n'), 10);
}

TEST(PasParser, HoldsOutDeepLongAndUnbalancedInput) {
  std::string const head = "unit U; interface var x: Integer; implementation ";
  std::string const x = "1 var U.x undefined [var x: Integer;]\n";
  std::string const lost = "FATAL ERROR: Unexpected end of file\n";
  EXPECT_EQ(parse(head + "procedure p; begin " + repeated(100000, "begin ") + "end"), x + lost);
  EXPECT_EQ(parse("begin " + repeated(100000, "begin ") + repeated(100001, "end ") + "."), "");
  EXPECT_EQ(parse("type A = " + repeated(35, "array[1..2] of ") + "5;"),
            "a.pas:1: ERROR 11: Syntax error with token: #59 \";\"\nresult 1\n");
  EXPECT_EQ(parse("type A = " + repeated(150, "array[1..2] of ")),
            "FATAL ERROR: Stack overflow in the parser\n");
  EXPECT_EQ(parse("const c = " + repeated(5000, "\n") + repeated(5000, "+ ") + ";"),
            parse("const c = " + repeated(5000, "\n") + repeated(5000, "+ ") + "; var"));
}

TEST(PasParser, GivesUpWhereTheElementsWouldTakeMoreMemoryThanTheSource) {
  std::string const names = repeated(20000, "a,") + "a: T" + repeated(20000, ".T") + ");";
  EXPECT_EQ(parse("procedure p(" + names),
            "FATAL ERROR: Too much text in the declarations of the file\n");
  EXPECT_EQ(parse("type T = (a" + repeated(100000, ",a") + ");"),
            "FATAL ERROR: Too many parts in one declaration\n");
}

TEST(PasGrammar, HasNoConflicts) {
  EXPECT_EQ(grammar_conflicts("pas_l"), "0 shift/reduce, 0 reduce/reduce");
}
