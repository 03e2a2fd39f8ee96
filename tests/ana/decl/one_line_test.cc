// Stretches of a source on one line, and names.
#include "ana/decl/declaration.h"

#include <gtest/gtest.h>

namespace Decl {

namespace {

std::string line(std::string_view text, gSyntax syntax = gSyntax::cpp) {
  return one_line(text, {0, static_cast<std::uint32_t>(text.size())}, syntax);
}

std::string name(std::string_view text) {
  gDeclaration one;
  one.name = {0, static_cast<std::uint32_t>(text.size())};
  return shown_name(text, {}, one);
}

TEST(OneLine, OfCpp) {
  EXPECT_EQ(line(" int /* a */ f( // b\n  int\t a )\\\n const "), "int f(int a ) const");
  EXPECT_EQ(line("a = \"  // \\\"  \", b = '\\'', c = 1'000  + R\"x(/* \")\n)x\""),
            "a = \"  // \\\"  \", b = '\\'', c = 1'000 + R\"x(/* \") )x\"");
  EXPECT_EQ(line("f(\n#if A\nint a\n# else\n#if B\nlong b\n#endif\nx\n#endif\n)"), "f(int a)");
  EXPECT_EQ(line("a\n#define X \\\n y\n/* open"), "a");
}

TEST(OneLine, OfPascal) {
  EXPECT_EQ(line("procedure { a } X(* b *)( // c\n s: string = ' { '' } ')", gSyntax::pascal),
            "procedure X (s: string = ' { '' } ')");
  EXPECT_EQ(
      line("X(a: {$ifdef Q}B{$else}{$IFDEF R}C{$ELSE}D{$ENDIF} E{$endif}; c: d)", gSyntax::pascal),
      "X(a: B; c: d)");
}

TEST(OneLine, Names) {
  EXPECT_EQ(name("operator  +"), "operator+");
  EXPECT_EQ(name("operator\nunsigned  int *"), "operator unsigned int*");
  EXPECT_EQ(name("operator new [ ]"), "operator new[]");
  EXPECT_EQ(name("operator \"\" _x"), "operator\"\"_x");
  EXPECT_EQ(name("~ X"), "~X");
}

TEST(OneLine, KindWordsGoBothWays) {
  for (int kind = 0; kind <= static_cast<int>(gKind::type); ++kind)
    EXPECT_EQ(kind_of_word(kind_word(static_cast<gKind>(kind))), static_cast<gKind>(kind));
  EXPECT_EQ(kind_of_word("shape"), gKind::none);
}

} // namespace

} // namespace Decl
