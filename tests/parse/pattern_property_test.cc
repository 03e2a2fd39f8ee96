// Random patterns against a matcher that follows a pattern's tree straight from its meaning.
#include <random>
#include <set>

#include <gtest/gtest.h>

#include "parse/test_scan.h"
#include "support/test_outside.h"

namespace {

using Ends = std::set<std::size_t>;

struct Tree {
  char kind = 'c'; // c: character, .: any of "ab\n", s: sequence, |: choice, *+?: repeat, 2: twice
  char byte = 'a';
  std::vector<Tree> parts;

  std::string text() const {
    switch (kind) {
    case 'c':
      return byte == '\n' ? "\\n" : std::string(1, byte);
    case '.':
      return "[^c]";
    case 's':
      return parts[0].text() + parts[1].text();
    case '|':
      return "(" + parts[0].text() + "|" + parts[1].text() + ")";
    case '2':
      return "(" + parts[0].text() + "){1,2}";
    default:
      return "(" + parts[0].text() + ")" + kind;
    }
  }

  Ends ends(std::string_view text, std::size_t from) const {
    Ends once, result;
    switch (kind) {
    case 'c':
    case '.':
      if (from < text.size() && (kind == '.' ? text[from] != 'c' : text[from] == byte))
        result.insert(from + 1);
      return result;
    case 's':
      return behind(parts[1], text, parts[0].ends(text, from));
    case '|':
      result = parts[0].ends(text, from);
      result.merge(parts[1].ends(text, from));
      return result;
    }
    once = parts[0].ends(text, from);
    result = once;
    if (kind == '*' || kind == '?')
      result.insert(from);
    if (kind == '2')
      result.merge(behind(parts[0], text, once));
    for (std::size_t size = 0; (kind == '*' || kind == '+') && size != result.size();) {
      size = result.size();
      result.merge(behind(parts[0], text, result));
    }
    return result;
  }

  static Ends behind(Tree const & tree, std::string_view text, Ends const & starts) {
    Ends result;
    for (std::size_t start : starts)
      result.merge(tree.ends(text, start));
    return result;
  }
};

struct Rule {
  Tree head;
  bool has_tail = false;
  Tree tail;
  bool line_head = false;
  bool rejects = false;

  std::string text() const {
    return (line_head ? "^" : "") + head.text() + (has_tail ? "/" + tail.text() : "");
  }
};

class Naive {
public:
  explicit Naive(std::vector<Rule> const & rules) : rules_(rules) {}

  std::string notes_of(std::string_view text) const {
    std::string notes;
    for (std::size_t at = 0; at < text.size();)
      at = one_match(text, at, notes);
    return notes;
  }

private:
  std::size_t one_match(std::string_view text, std::size_t at, std::string & notes) const {
    bool const line_head = at == 0 || text[at - 1] == '\n';
    for (std::size_t end = text.size(); end > at; --end)
      for (std::size_t i = 0; i < rules_.size(); ++i) {
        Rule const & rule = rules_[i];
        std::size_t token_end = end;
        if (rule.rejects || (rule.line_head && !line_head) ||
            !matches(rule, text, at, end, token_end))
          continue;
        notes += std::to_string(i) + "<" + std::string(text.substr(at, token_end - at)) + ">";
        return token_end;
      }
    return at + 1;
  }

  static bool matches(Rule const & rule, std::string_view text, std::size_t at, std::size_t end,
                      std::size_t & token_end) {
    Ends const heads = rule.head.ends(text, at);
    if (!rule.has_tail)
      return heads.count(end) > 0;
    for (auto head = heads.rbegin(); head != heads.rend(); ++head)
      if (rule.tail.ends(text, *head).count(end)) {
        token_end = *head;
        return true;
      }
    return false;
  }

  std::vector<Rule> const & rules_;
};

class Random {
public:
  explicit Random(unsigned seed) : numbers_(seed) {}
  std::size_t below(std::size_t limit) { return numbers_() % limit; }
  char pick(std::string_view from) { return from[below(from.size())]; }
  Tree tree(int depth) {
    Tree tree;
    tree.kind = pick(depth == 0 ? "cccc." : "ccss|*+?2.");
    tree.byte = pick("aabbc\n");
    std::size_t const parts = tree.kind == 's' || tree.kind == '|'   ? 2
                              : tree.kind == 'c' || tree.kind == '.' ? 0
                                                                     : 1;
    for (std::size_t i = 0; i < parts; ++i)
      tree.parts.push_back(this->tree(depth - 1));
    return tree;
  }
  std::string text() {
    std::string text;
    for (std::size_t length = below(14); length > 0; --length)
      text += pick("aaabbbc\n");
    return text;
  }
  Rule rule() {
    Rule rule{tree(3), below(3) == 0, {}, below(5) == 0, below(5) == 0};
    if (rule.has_tail) { // a token must not be empty, or the same match would come for ever
      rule.tail = tree(2);
      rule.head = Tree{'s', 'a', {tree(0), rule.head}};
    }
    return rule;
  }

private:
  std::mt19937 numbers_;
};

TEST(PatternProperty, random_tables_match_as_their_meaning_says) {
  TestOutside outside;
  Random random(4711);
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
      ASSERT_EQ(scan.notes_of(text), Naive(rules).notes_of(text))
          << "text " << text << "\nrules " << ::testing::PrintToString(patterns);
    }
  }
}

} // namespace
