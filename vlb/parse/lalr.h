// The driver of all parsers over the tables that are made of their grammars.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "vlb/gexception.h"
#include "vlb/messages.h"
#include "vlb/parse/parse_base.h"
#include "vlb/parse/value.h"

// The tables of one grammar. Rows of states are laid over each other in `table`: a state's entry
// for a symbol stands at its offset plus the symbol, if `check` has the symbol there.
struct gLalrTables {
  using Number = std::int16_t;

  Number const * offsets;       // of each state's tokens in `table`
  Number const * reductions;    // of each state without tokens
  Number const * goto_offsets;  // of each left-hand side's states in `table`
  Number const * goto_defaults; // where `table` has nothing
  Number const * table;         // positive: shift and go there; negative: reduce; 0: fault
  Number const * check;
  Number const * left_sides;  // of each rule, as a symbol
  Number const * lengths;     // of each rule
  Number const * symbols;     // of each token number
  char const * const * names; // of each symbol; in quotes where the grammar tells one for the user
  int last;                   // index in `table`
  int no_tokens;              // offset of a state that only reduces
  int fault;                  // a further entry of `table` for a fault
  int final_state;
  int token_symbols; // symbols below are tokens
  int highest_token;

  static constexpr int error_symbol = 1;
  static constexpr int unknown_symbol = 2;

  int symbol(int token) const {
    return token < 0 || token > highest_token ? unknown_symbol : symbols[token];
  }
  // What a token is called in a report; empty if its text says enough.
  std::string_view name(int token) const {
    std::string_view const name = names[symbol(token)];
    return name.starts_with('"') ? name.substr(1, name.size() - 2) : std::string_view();
  }
  // What a state does with a token: as in `table`.
  int action(int state, int symbol) const {
    int const at = offsets[state] + symbol;
    if (offsets[state] == no_tokens || at < 0 || at > last || check[at] != symbol)
      return 0;
    return table[at] == fault ? 0 : table[at];
  }
  int next_state(int state, int rule) const {
    int const left = left_sides[rule] - token_symbols;
    int const at = goto_offsets[left] + state;
    return at >= 0 && at <= last && check[at] == state ? table[at] : goto_defaults[left];
  }
};

// One parse. It owns the stacks, so that values are freed however the parse ends.
template <class Parser> class gLalrRun {
public:
  using Value = typename Parser::Value;

  explicit gLalrRun(Parser & parser)
      : parser_(parser),
        base_(parser),
        tables_(Parser::tables()),
        states_(static_cast<std::size_t>(parser.stack_size())),
        values_(states_.size()) {}

  int run() {
    base_.clearin();
    base_.recovery_ = 0;
    Value nothing;
    push(0, nothing);
    for (;;) {
      int const state = top();
      if (state == tables_.final_state)
        return 0;
      if (tables_.offsets[state] == tables_.no_tokens) {
        reduce(tables_.reductions[state]);
        continue;
      }
      if (!read())
        return 1;
      int const action = tables_.action(state, tables_.symbol(base_.lookahead_));
      if (action > 0)
        shift(action);
      else if (action < 0)
        reduce(-action);
      else if (!recover())
        return 1;
    }
  }

private:
  static constexpr int recovery_tokens = 3;

  int top() const { return states_[height_ - 1]; }

  void push(int state, Value & value) {
    if (height_ == states_.size())
      throw gExcFatalErr(Msg::parser_stack, "", base_.scanner().place());
    states_[height_] = static_cast<gLalrTables::Number>(state);
    values_[height_] = std::move(value);
    ++height_;
  }

  void pop(std::size_t count) {
    for (; count > 0; --count)
      values_[--height_].clear();
  }

  // Sees to it that there is a look-ahead; false if the scanner wants an end.
  bool read() {
    if (base_.lookahead_ != gParseBase::no_token)
      return true;
    int const token = parser_.scanner().scan();
    if (token == gParseBase::give_up)
      return false;
    base_.lookahead_ = token < 0 ? 0 : token;
    return true;
  }

  void shift(int state) {
    base_.clearin();
    push(state, parser_.scanner().token_value());
    parser_.scanner().token_value().clear();
    if (base_.recovery_ > 0)
      --base_.recovery_;
  }

  void reduce(int rule) {
    auto const length = static_cast<std::size_t>(tables_.lengths[rule]);
    Value result;
    bool const acted = parser_.reduce(rule, values_.data() + (height_ - length), result);
    if (length == 0) {
      push(tables_.next_state(top(), rule), result);
      return;
    }
    // The first symbol's place becomes that of the left side.
    pop(length - 1);
    if (acted)
      values_[height_ - 1] = std::move(result);
    states_[height_ - 1] =
        static_cast<gLalrTables::Number>(tables_.next_state(states_[height_ - 2], rule));
  }

  // A first fault is reported, then the stack is popped to a state that knows how to go on behind
  // `error`. Until three tokens have been shifted, further faults aren't reported; and if none has
  // been shifted since, the token itself is what doesn't fit, and is dropped.
  bool recover() {
    if (base_.recovery_ == recovery_tokens) {
      bool const more = base_.lookahead_ != 0;
      base_.clearin();
      return more;
    }
    if (base_.recovery_ == 0)
      base_.report_syntax_error(tables_.name(base_.lookahead_));
    base_.recovery_ = recovery_tokens;
    for (; height_ > 0; pop(1))
      if (int const state = tables_.action(top(), gLalrTables::error_symbol); state > 0) {
        Value nothing;
        push(state, nothing);
        return true;
      }
    return false;
  }

  Parser & parser_;
  gParseBase & base_;
  gLalrTables const & tables_;
  std::vector<gLalrTables::Number> states_;
  std::vector<Value> values_;
  std::size_t height_ = 0;
};

// Runs a parser over its input: 0 if it was accepted, 1 if parsing had to give up. The parser is of
// a class that derives from gParseBase and has `Value` (a gValue), `reduce` and `tables`; the two
// functions are made of its grammar, and `reduce` answers false for a rule without an action. Its
// scanner has `Value & token_value()`.
template <class Parser> int run_lalr(Parser & parser) {
  return gLalrRun<Parser>(parser).run();
}
