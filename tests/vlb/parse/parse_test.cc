// The parser's driver on a small language: recovery, limits and values.
#include <gtest/gtest.h>

#include "support/test_outside.h"
#include "vlb/parse/grammar_conflicts.h"
#include "vlb/parse/list_parse.h"
#include "vlb/parse/test_scan.h"

namespace {

enum { WORD = 300 };

std::vector<gScanRule<ListScan>> const rules = {
    {in({0}), "[a-z]+",
     [](ListScan & s) { return s.token_value().set(Counted(s.token())), +WORD; }},
    {in({0}), "[ \\n]", [](ListScan &) { return scan_go_on; }},
    {in({0}), "!", [](ListScan &) { return gParseBase::give_up; }},
    {in({0}), "~", [](ListScan &) { return -7; }},
    {in({0}), ".[0-9]*",
     [](ListScan & s) { return int(static_cast<unsigned char>(s.token().front())); }},
};

} // namespace

int ListScan::scan() {
  static gScanTable<ListScan> const table(rules);
  return run(*this, table);
}

void ListParse::skip() {
  int token = scan_.scan();
  while (token > 0 && token != '*' && scan_.token().front() != 'z')
    token = scan_.scan();
  set_lookahead(token);
}

namespace {

class Parse : public ::testing::Test {
protected:
  TestOutside outside;
  ListParse parser;

  std::string outcome(std::string const & text) {
    outside.reports.clear();
    int const result = parser.parse(text);
    std::string all = std::to_string(result) + ": " + parser.notes;
    for (std::string report : outside.reports)
      all += " " + report.substr(report.find('#'));
    return all;
  }
};

TEST_F(Parse, actions_see_the_symbols_of_their_rule_and_those_in_front) {
  std::pair<char const *, char const *> const rows[] = {
      {"a { b; c { } }", "0: enter a,word b,enter c,leave c,leave a,end,"},
      {"a; ~ b;", "0: word a,end,"},
      {"a; ! b;", "1: word a,"},
  };
  for (auto const & [text, expected] : rows)
    EXPECT_EQ(outcome(text), expected) << text;
}

TEST_F(Parse, recovers_behind_error_and_reports_no_fault_twice) {
  std::pair<char const *, char const *> const rows[] = {
      // Dropped tokens don't bring `error` in again.
      {"a b c ) ( d; e;", "0: fault,recovered,word e,end, #300 \"b\" (in.txt:1)"},
      // The second fault follows after two tokens, the third after three.
      {"a b; c d; e;", "0: fault,recovered,fault,recovered,word e,end, #300 \"b\" (in.txt:1)"},
      {"a b; c; d e; f;",
       "0: fault,recovered,word c,fault,recovered,word f,end, #300 \"b\" (in.txt:1)"
       " #300 \"e\" (in.txt:1)"},
      // States above the one that knows `error` are left.
      {"a { b [ (( c; d; ] }",
       "0: enter a,in b,fault,recovered,word d,out b,leave a,end, #300 \"c\" (in.txt:1)"},
      {"\na", "1: fault, #0 \"\" (end of file) (in.txt:2)"},
      {"\xB4;", "0: fault,recovered,end, #180 \"\xB4\" (in.txt:1)"},
      {"a bcdefghijklmnopqrstuv;",
       "0: fault,recovered,end, #300 \"bcdefghijklmnopqrstu...\" (in.txt:1)"},
  };
  for (auto const & [text, expected] : rows)
    EXPECT_EQ(outcome(text), expected) << text;
}

// Two states are below the opening brackets, and the innermost `nest` and its ")" above them.
TEST_F(Parse, holds_150_states) {
  auto const nested = [&](int depth) {
    return fault_of(
        [&] { EXPECT_EQ(parser.parse(std::string(depth, '(') + std::string(depth, ')')), 0); });
  };
  EXPECT_EQ(nested(146), "none");
  EXPECT_EQ(nested(147), "FATAL ERROR: Stack overflow in the parser");
  EXPECT_EQ(outcome("a;"), "0: word a,end,");
}

TEST_F(Parse, values_are_moved_and_freed_however_the_parse_ends) {
  Counted::live = 0;
  for (std::string const & text :
       {std::string("a { b; # c + d; } e;"), std::string("a { b [ c d; }"), std::string("a { b !"),
        "a [" + std::string(200, '(')}) {
    fault_of([&] { parser.parse(text); });
    parser.scanner().token_value().clear();
    EXPECT_EQ(Counted::live, 0) << text;
  }
}

TEST_F(Parse, an_action_may_read_tokens_and_leave_one_with_its_own_value) {
  EXPECT_EQ(outcome("# a + -;b(c zd; e;"), "0: sum a+zd,word e,end,");
  EXPECT_EQ(outcome("# - a *; e;"), "0: sum none,word e,end,");
}

TEST_F(Parse, conflicts_are_counted) {
  EXPECT_EQ(grammar_conflicts("list_l"), "1 shift/reduce, 0 reduce/reduce");
}

} // namespace
