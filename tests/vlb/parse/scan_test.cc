// Scanners by tables of patterns, input and matches.
#include <gtest/gtest.h>

#include "support/test_outside.h"
#include "vlb/gexception.h"
#include "vlb/parse/test_scan.h"

namespace {

struct Row {
  std::vector<std::string> patterns;
  std::string input, notes;
};

std::vector<gScanDefinition> const definitions = {
    {"id", "[A-Za-z_]{alnum}*"}, {"alnum", "[A-Za-z0-9_]"}, {"ws", "[ \\t\\n]"}};

TEST(Scan, takes_the_longest_match_with_its_trailing_context_then_the_earlier_rule) {
  Row const rows[] = {
      {{"if", "{id}", "[ ]"}, "if ifx if", "0<if>2< >1<ifx>2< >0<if>"},
      {{"a{2,3}", "a"}, "aaaaaa a", "0<aaa>0<aaa>1<a>"},
      {{"(ab)+c?", "\"+*\\\"\"", "."}, "ababcabb+*\"", "0<ababc>0<ab>2<b>1<+*\">"},
      {{"[^a-c\\]-]+", ".|\\n"}, "ax-\nd]", "1<a>0<x>1<->0<\nd>1<]>"},
      {{"\\x41\\t", "[\\xB4\\x80-\\x8f]", "."}, "A\tA\xB4\x81", "0<A\t>2<A>1<\xB4>1<\x81>"},
      {{"{id}/{ws}*\\(", "{id}", ".|\\n"}, "f \n(g ", "0<f>2< >2<\n>2<(>1<g>2< >"},
      {{"^[ ]*#", "[ ]", ".", "\\n+"}, " ##\n#\n\n #a#", "0< #>2<#>3<\n>0<#>3<\n\n>0< #>2<a>2<#>"},
  };
  TestOutside outside;
  for (Row const & row : rows)
    EXPECT_EQ(TestScan(row.patterns, definitions).notes_of(row.input), row.notes)
        << row.patterns.front();
}

TEST(Scan, reject_tries_the_next_rule_then_a_shorter_match_then_skips) {
  TestOutside outside;
  TestScan scan({"ab", "[a-z]+", "a", "b/c"});
  scan.on_match = [&](int rule) { return rule <= 1 ? scan_reject : scan_go_on; };
  EXPECT_EQ(scan.notes_of("abc"), "2<a>3<b>");
  EXPECT_EQ(outside.reports, std::vector<std::string>{
                                 "ERROR 10: Lexical error with character: 'c' (0x63) (in.txt:1)"});
}

TEST(Scan, cut_and_pushed_back_text_is_read_next_and_in_its_order) {
  TestScan scan({"abc", "[a-z]", "[0-9]+", "\\n"});
  int inputs = 0;
  scan.on_match = [&](int rule) {
    if (rule == 0 && inputs++ == 0) {
      scan.push_back("123");
      scan.unput('\n');
      scan.unput('x');
      EXPECT_EQ(scan.token(), "abc"); // although other text stands in its place now
      EXPECT_EQ(scan.line(), 0);
      scan.cut_to(2);
    }
    return scan_go_on;
  };
  EXPECT_EQ(scan.notes_of("abcdabc"), "0<ab>1<c>1<x>3<\n>2<123>1<d>0<abc>");
  EXPECT_EQ(scan.line(), 1);
}

TEST(Scan, counts_the_lines_of_a_token_when_the_next_begins) {
  TestScan scan({"[a\\n]+", "b", "\\n?c", "^x"});
  std::string lines;
  scan.on_match = [&](int rule) {
    lines += std::to_string(scan.line()) + " ";
    if (rule == 0)
      scan.set_line(scan.line() + 10);
    if (rule == 1) {
      EXPECT_EQ(scan.input(), '\n');
      lines += "input " + std::to_string(scan.line()) + " ";
    }
    return scan_go_on;
  };
  scan.notes_of("a\n\nb\nx\nc");
  EXPECT_EQ(lines, "1 13 input 14 14 14 ");
  EXPECT_EQ(scan.line(), 15);
  scan.on_match = [&](int) { return scan.set_line(2147483647), scan_go_on; };
  scan.notes_of("\n");
  EXPECT_EQ(scan.line(), 2147483647);
}

TEST(Scan, limits_what_is_walked_for_a_token_and_what_is_pushed_back) {
  std::string const overflow = "FATAL ERROR: Token buffer overflow in the scanner";
  TestScan scan({"a+", "b/c*d", "\\Re+", "\\R[f\\n]+", "f+g", ".|\\n"});
  auto const fault = [&](std::string const & input) {
    return fault_of([&] { scan.notes_of(input); });
  };
  auto const many = [](int count, char c) { return std::string(std::size_t(count), c); };
  EXPECT_EQ(fault(many(1023, 'a') + "x"), "none");
  EXPECT_EQ(fault(many(1024, 'a')), overflow);
  EXPECT_EQ(fault("b" + many(1022, 'c') + "x"), "none");
  EXPECT_EQ(fault("b" + many(1023, 'c') + "x"), overflow);
  // Runs end anywhere; what they yield together is the whole text.
  std::string const run = "2<" + many(1024, 'e') + ">";
  EXPECT_EQ(scan.notes_of(many(2952, 'e') + "x"), run + run + "2<" + many(904, 'e') + ">5<x>");
  EXPECT_NO_THROW(scan.push_back(many(1024, 'x')));
  EXPECT_EQ(fault_of([&] { scan.unput('y'); }),
            "FATAL ERROR: Push-back buffer overflow in the scanner");
  EXPECT_EQ(scan.input(), 'x');
}

TEST(Scan, refuses_malformed_patterns) {
  for (char const * pattern : {"(a", "a)", "[a", "\"a", "a{2", "a{3,2}", "{none}", "{self}", "*a",
                               "a/b/c", "/*", "(a/b)", "a$", "[b-a]", "a\\", "\\xg", "a{1000}"})
    EXPECT_THROW(TestScan({pattern}, {{"self", "x{self}"}}), gExcInternalErr) << pattern;
}

} // namespace
