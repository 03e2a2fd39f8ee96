// The automaton of a scanner: one table over bytes for all rules and start conditions.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "vlb/parse/pattern.h"

// A deterministic automaton over bytes. State 0 is dead. NUL leads nowhere from every state.
class gDfa {
public:
  using State = std::uint16_t;

  gDfa() = default;
  // One state to begin in for each set of positions.
  gDfa(gPositions const & positions, std::vector<std::vector<int>> const & starts);

  // Where to begin for the n-th set of positions.
  State start(std::size_t n) const { return starts_[n]; }
  State step(State state, char byte) const { return row(state)[class_of(byte)]; }
  // The rules that end here, ascending.
  std::span<std::uint16_t const> accepted(State state) const {
    return {rules_.data() + accepted_[state], accepted_[state + 1u] - accepted_[state]};
  }
  // The first of them, no_rule if none ends here.
  int first_rule(State state) const { return first_rule_[state]; }
  static constexpr int no_rule = -1;
  std::size_t states() const { return first_rule_.size(); }

  // How far a text leads.
  struct Walk {
    char const * end;      // behind the last byte that could be taken
    char const * accepted; // behind the longest match that isn't empty
    State state;           // there
    int rule;              // the first of that match, or no_rule
  };
  Walk walk(State begin, char const * text, char const * stop) const;

private:
  friend class gDfaBuilder;
  std::uint8_t class_of(char byte) const { return classes_[static_cast<unsigned char>(byte)]; }
  State const * row(State state) const {
    return next_.data() + (static_cast<std::size_t>(state) << shift_);
  }

  std::array<std::uint8_t, 256> classes_{};
  unsigned shift_ = 0; // rows are padded to a power of two
  std::vector<State> next_, starts_;
  std::vector<std::int16_t> first_rule_;
  std::vector<std::uint32_t> accepted_;
  std::vector<std::uint16_t> rules_;
};

// A rule as far as the automaton knows it.
struct gPatternRow {
  unsigned conditions;
  char const * pattern;
};

class gAutomaton {
public:
  gAutomaton(std::span<gPatternRow const> rows, std::span<gScanDefinition const> definitions);

  gDfa const & dfa() const { return dfa_; }
  // Conditions are even, so that the line head makes the odd neighbour.
  gDfa::State entry(int condition, bool line_head) const {
    return dfa_.start(static_cast<std::size_t>(condition | int(line_head)));
  }
  static constexpr int highest_condition = 62;

  bool is_run(int rule) const { return rules_[static_cast<std::size_t>(rule)].run; }
  bool holds_line_feed(int rule) const {
    return rules_[static_cast<std::size_t>(rule)].holds_line_feed;
  }
  // The length of the token in a match, which holds the trailing context too.
  int token_length(int rule, std::string_view match) const {
    Rule const & one = rules_[static_cast<std::size_t>(rule)];
    return one.cut == Cut::none ? static_cast<int>(match.size()) : head_length(one, match);
  }

private:
  // How the trailing context is told from the token.
  enum class Cut : std::uint8_t { none, fixed_head, fixed_tail, search };
  struct Rule {
    Cut cut = Cut::none;
    bool run = false;
    bool holds_line_feed = false;
    int length = 0; // of the fixed part, or the index of the context
  };
  // For a token and a context that both vary: the token forwards, the context backwards.
  struct Context {
    gDfa head, tail;
  };
  Rule describe(gPattern const & pattern);
  int head_length(Rule const & rule, std::string_view match) const;
  int searched_length(Context const & context, std::string_view match) const;

  gDfa dfa_;
  std::vector<Rule> rules_;
  std::vector<Context> contexts_;
};
