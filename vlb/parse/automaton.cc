// Rules to one automaton: each rule's pattern begins in the entry states of its conditions. A rule
// tied to the line's head begins only in the entries that stand for one.
#include "vlb/parse/automaton.h"

#include <algorithm>

#include "vlb/gexception.h"

gAutomaton::gAutomaton(std::span<gPatternRow const> rows,
                       std::span<gScanDefinition const> definitions) {
  gPositions positions;
  std::vector<std::vector<int>> starts(highest_condition + 2);
  for (gPatternRow const & row : rows) {
    gPattern const pattern = parse_pattern(row.pattern, definitions);
    int const rule = static_cast<int>(rules_.size());
    rules_.push_back(describe(pattern));
    int const parts[] = {pattern.head, pattern.tail};
    std::vector<int> const first =
        positions.add(pattern, std::span(parts, pattern.tail < 0 ? 1u : 2u), rule);
    for (int condition = 0; condition <= highest_condition + 1; ++condition)
      if (row.conditions >> (condition / 2) & 1u && (condition % 2 == 1 || !pattern.line_head)) {
        auto & start = starts[static_cast<std::size_t>(condition)];
        start.insert(start.end(), first.begin(), first.end());
      }
  }
  dfa_ = gDfa(positions, starts);
}

gAutomaton::Rule gAutomaton::describe(gPattern const & pattern) {
  Rule rule;
  rule.run = pattern.run;
  rule.holds_line_feed = std::any_of(pattern.nodes.begin(), pattern.nodes.end(),
                                     [](gPatternNode const & node) { return node.bytes['\n']; });
  if (pattern.tail < 0)
    return rule;
  if (rule.length = pattern.fixed_length(pattern.head); rule.length >= 0) {
    rule.cut = Cut::fixed_head;
  } else if (rule.length = pattern.fixed_length(pattern.tail); rule.length >= 0) {
    rule.cut = Cut::fixed_tail;
  } else {
    rule.cut = Cut::search;
    rule.length = static_cast<int>(contexts_.size());
    gPositions head, tail;
    std::vector<int> const head_first = head.add(pattern, {&pattern.head, 1}, 0);
    std::vector<int> const tail_first = tail.add(pattern, {&pattern.tail, 1}, 0, true);
    contexts_.push_back({gDfa(head, {head_first}), gDfa(tail, {tail_first})});
  }
  return rule;
}

int gAutomaton::head_length(Rule const & rule, std::string_view match) const {
  switch (rule.cut) {
  case Cut::fixed_head:
    return rule.length;
  case Cut::fixed_tail:
    return static_cast<int>(match.size()) - rule.length;
  case Cut::search:
    return searched_length(contexts_[static_cast<std::size_t>(rule.length)], match);
  case Cut::none:
    break;
  }
  return static_cast<int>(match.size());
}

// The longest token whose rest is a context: the context is walked from the match's end, so that
// the first place that suits both is the answer.
int gAutomaton::searched_length(Context const & context, std::string_view match) const {
  std::vector<bool> token_ends(match.size() + 1);
  gDfa::State state = context.head.start(0);
  for (std::size_t i = 0; state; ++i) {
    token_ends[i] = context.head.first_rule(state) >= 0;
    if (i == match.size())
      break;
    state = context.head.step(state, match[i]);
  }
  state = context.tail.start(0);
  for (std::size_t i = match.size();; --i) {
    if (token_ends[i] && context.tail.first_rule(state) >= 0)
      return static_cast<int>(i);
    if (i == 0)
      break;
    state = context.tail.step(state, match[i - 1]);
  }
  return static_cast<int>(match.size());
}
