// Random tables against a scanner that tries every rule at every length by the regular expressions
// of POSIX.
#include <memory>
#include <optional>
#include <random>
#include <regex.h>

#include <gtest/gtest.h>

#include "support/test_outside.h"
#include "vlb/parse/test_scan.h"

namespace {

using Regex = std::shared_ptr<regex_t>;

Regex compiled(std::string pattern) {
  for (std::size_t at; (at = pattern.find("\\n")) != pattern.npos;)
    pattern.replace(at, 2, "\n");
  Regex const regex(new regex_t, [](regex_t * old) { ::regfree(old), delete old; });
  EXPECT_EQ(::regcomp(regex.get(), ("^(" + pattern + ")$").c_str(), REG_EXTENDED | REG_NOSUB), 0);
  return regex;
}

struct Rule {
  std::string head;
  std::optional<std::string> tail;
  bool line_head = false, rejects = false;
  Regex head_regex = compiled(head), tail_regex = compiled(tail.value_or(""));

  std::string text() const { return (line_head ? "^" : "") + head + (tail ? "/" + *tail : ""); }

  // Where the token ends if the rule matches the text from `at` to `end`; else 0.
  std::size_t token_end(std::string const & text, std::size_t at, std::size_t end) const {
    auto const matches = [&](std::size_t from, std::size_t to, Regex const & regex) {
      std::string const part = text.substr(from, to - from);
      return ::regexec(regex.get(), part.c_str(), 0, nullptr, 0) == 0;
    };
    if (rejects || (line_head && at > 0 && text[at - 1] != '\n'))
      return 0;
    if (!tail)
      return matches(at, end, head_regex) ? end : 0;
    for (std::size_t middle = end; middle > at; --middle)
      if (matches(at, middle, head_regex) && matches(middle, end, tail_regex))
        return middle;
    return 0;
  }
};

std::string naive_notes(std::vector<Rule> const & rules, std::string const & text) {
  std::string notes;
  std::size_t at = 0;
  auto const one_match = [&] {
    for (std::size_t end = text.size(); end > at; --end)
      for (std::size_t i = 0; i < rules.size(); ++i)
        if (std::size_t const token_end = rules[i].token_end(text, at, end)) {
          notes += std::to_string(i) + "<" + text.substr(at, token_end - at) + ">";
          return token_end;
        }
    return at + 1;
  };
  while (at < text.size())
    at = one_match();
  return notes;
}

class Random {
public:
  std::size_t below(std::size_t limit) { return numbers_() % limit; }
  char pick(std::string_view from) { return from[below(from.size())]; }
  std::string pattern(int depth) {
    char const kind = pick(depth == 0 ? "cccc." : "ccss|*+?2.");
    switch (kind) {
    case 'c':
      return std::vector<std::string>{"a", "a", "b", "b", "c", "\\n"}[below(6)];
    case '.':
      return "[^c]";
    case 's':
      return pattern(depth - 1) + pattern(depth - 1);
    case '|':
      return "(" + pattern(depth - 1) + "|" + pattern(depth - 1) + ")";
    default:
      return "(" + pattern(depth - 1) + ")" + (kind == '2' ? "{1,2}" : std::string(1, kind));
    }
  }
  std::string text() {
    std::string text(below(14), ' ');
    for (char & c : text)
      c = pick("aaabbbc\n");
    return text;
  }
  Rule rule() {
    bool const line_head = below(5) == 0, rejects = below(5) == 0;
    if (below(3) > 0)
      return {pattern(3), {}, line_head, rejects};
    // A token must not be empty, or the same match would come for ever.
    return {pattern(0) + pattern(3), pattern(2), line_head, rejects};
  }

private:
  std::mt19937 numbers_{4711};
};

TEST(PatternProperty, random_tables_match_as_their_meaning_says) {
  TestOutside outside;
  Random random;
  for (int round = 0; round < 600; ++round) {
    std::vector<Rule> rules;
    std::vector<std::string> patterns;
    for (std::size_t count = 1 + random.below(4); count > 0; --count) {
      rules.push_back(random.rule());
      patterns.push_back(rules.back().text());
    }
    TestScan scan(patterns);
    scan.on_match = [&](int rule) {
      return rules[std::size_t(rule)].rejects ? scan_reject : scan_go_on;
    };
    for (int i = 0; i < 8; ++i) {
      std::string const text = random.text();
      ASSERT_EQ(scan.notes_of(text), naive_notes(rules, text))
          << "text " << text << "\nrules " << ::testing::PrintToString(patterns);
    }
  }
}

} // namespace
