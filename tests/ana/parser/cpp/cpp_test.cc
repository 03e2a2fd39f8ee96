#include <random>

#include <gtest/gtest.h>

#include "ana/parser/cpp/cpp_support.h"
#include "ana/parser/doc/dense_cases.h"
#include "vlb/parse/grammar_conflicts.h"

namespace {

// A project with a macro reads skipped source token by token, one without in pieces.
std::string with_some_macro(std::string const & text) {
  take_options("%macro NEVER_USED 1 0 0\n");
  std::string const result = parse(text);
  take_options("");
  return result;
}

std::string repeated(int n, std::string const & text) {
  std::string all;
  for (; n > 0; --n)
    all += text;
  return all;
}

} // namespace

TEST(CppScanner, GivesTheTokensOfTheCode) {
  check_annotated(CASE_DIR "/tokens.cases",
                  [](std::string const & input) { return tokens(take_options(input)); });
}

TEST(CppParser, LeavesTheElementsOfDeclarations) {
  check_annotated(CASE_DIR "/elements.cases",
                  [](std::string const & input) { return parse(take_options(input)); });
}

TEST(CppParser, SkippedSourceIsTheSameInPiecesAndInTokens) {
  std::vector<std::string> const words = parts_of(
      "(~)~[~]~{~}~<~>~<<~>>=~->~->*~--~-=~-~,~;~\"~'~\\~@~a~b ~1.0e-5~'\"'~\"}\"~ ~\n~/~=~"
      ">=~\\n~L~::~&~*~@_vlbcom } > ) @_vlecom ");
  static char const * const heads[] = {"int f(",   "int v[",        "A<",       "void g() {",
                                       "int i = ", "enum E { a = ", "template<"};
  std::mt19937 random(3);
  take_options("");
  for (int n = 0; n < 3000; ++n) {
    std::string text = heads[random() % std::size(heads)];
    for (unsigned i = random() % 30; i > 0; --i)
      text += words[random() % words.size()];
    text += " \n)]}> x; };";
    ASSERT_EQ(parse(text), with_some_macro(text)) << text;
  }
}

TEST(CppParser, HoldsOutDeepAndLongInput) {
  take_options("");
  EXPECT_EQ(parse("void f() " + repeated(100000, "{(") + repeated(100000, ")}") + " int x;"),
            "1 var x undefined 0 [int x;]\n");
  EXPECT_EQ(parse(repeated(5000, "\n") + "void f(" + repeated(5000, " ") + ");"),
            "5001 function f undefined 0 [void f();]\n");
  EXPECT_EQ(parse(repeated(40, "namespace n {") + repeated(40, "}")),
            "FATAL ERROR: Stack overflow in the parser\n");
}

TEST(CppParser, GivesUpOnWordsAndLiteralsBeyondTheLimit) {
  take_options("");
  std::string const word(1023, 'w'), fault = "FATAL ERROR: Token buffer overflow in the scanner\n";
  EXPECT_EQ(parse("void f() { " + word + " } int x;"), "1 var x undefined 0 [int x;]\n");
  EXPECT_EQ(parse("int w" + word + ";"), fault);
  EXPECT_EQ(parse("void f() { w" + word + " }"), fault);
  EXPECT_EQ(parse("char c[] = \"" + word.substr(1) + "\";"), fault);
}

TEST(CppParser, GivesUpWhereTheElementsWouldTakeMoreMemoryThanTheSource) {
  take_options("");
  std::string const fault = "FATAL ERROR: Too much text in the declarations of the file\n";
  std::string const endless = "FATAL ERROR: Too many parts in one declaration\n";
  std::string const members = repeated(20000, "int x;");
  auto end_of = [](std::string const & result) { return result.substr(result.rfind("FATAL")); };
  EXPECT_EQ(end_of(parse("class " + repeated(20000, "A::") + "B {" + members + "};")), fault);
  EXPECT_EQ(end_of(parse("class A<" + repeated(30000, "a,") + "> : B" + repeated(30000, ",B") +
                         " {" + members + "};")),
            fault);
  EXPECT_EQ(parse(repeated(100001, "word ") + ";"), endless);
  EXPECT_EQ(parse("class A : B" + repeated(100001, ",B") + " {};"), endless);
  std::string const specifiers = repeated(20000, "const ");
  EXPECT_EQ(parse(specifiers + "a" + repeated(20000, ",a") + ";"),
            "1 var a undefined 0 [" + specifiers + "a;]\n");
}

TEST(CppGrammar, HasTheConflictsThatTheOrderOfItsRulesDecides) {
  EXPECT_EQ(grammar_conflicts("cpp_l"), "14 shift/reduce, 7 reduce/reduce");
}
