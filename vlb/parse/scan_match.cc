// One token: finish the one before, walk as far as the automaton leads, take the longest match. The
// bytes are read in place; only a reject needs the states on the way, and walks again for them.
#include <algorithm>

#include "vlb/gexception.h"
#include "vlb/messages.h"
#include "vlb/parse/scan_base.h"

void gScanBase::finish_token() {
  if (length_ > 0) {
    if (!input_taken_)
      previous_ = static_cast<unsigned char>(token_[length_ - 1]);
    if (count_lines_)
      add_lines(std::count(token_, token_ + length_, '\n'));
  }
  length_ = 0;
  input_taken_ = false;
  token_ = next_;
}

int gScanBase::first_match(gAutomaton const & automaton) {
  for (;;) {
    finish_token();
    if (next_ == input_.end()) {
      if (wrap())
        return gDfa::no_rule;
      continue;
    }
    match_begin_ = next_;
    entry_ = automaton.entry(condition_, previous_ == '\n');
    has_trail_ = false;
    char const * const stop = next_ + std::min<std::ptrdiff_t>(size_, input_.end() - next_);
    gDfa::Walk const walk = automaton.dfa().walk(entry_, next_, stop);
    bool const is_run = walk.rule >= 0 && automaton.is_run(walk.rule);
    if (walk.end - next_ >= size_ && !is_run)
      throw gExcFatalErr(Msg::token_too_long, "", place());
    if (walk.rule >= 0) {
      take(automaton, walk.rule, next_ + (walk.accepted - next_));
      return walk.rule;
    }
    skip_unmatched(next_);
  }
}

void gScanBase::take(gAutomaton const & automaton, int rule, char * end) {
  match_end_ = end;
  std::string_view const match(match_begin_, static_cast<std::size_t>(end - match_begin_));
  token_ = match_begin_;
  length_ = automaton.token_length(rule, match);
  next_ = match_begin_ + length_;
  count_lines_ = automaton.holds_line_feed(rule);
}

void gScanBase::skip_unmatched(char * at) {
  token_ = at;
  length_ = 1;
  next_ = at + 1;
  count_lines_ = true;
  lex_error(static_cast<unsigned char>(*at));
}

void gScanBase::record_trail(gAutomaton const & automaton) {
  trail_.clear();
  gDfa::State state = entry_;
  for (char const * at = match_begin_; at != match_end_; ++at)
    trail_.push_back(state = automaton.dfa().step(state, *at));
  has_trail_ = true;
  alternative_ = 0;
}

int gScanBase::next_match(gAutomaton const & automaton) {
  if (!has_trail_)
    record_trail(automaton);
  for (++alternative_; !trail_.empty(); alternative_ = 0) {
    auto const rules = automaton.dfa().accepted(trail_.back());
    if (alternative_ < rules.size()) {
      take(automaton, rules[alternative_], match_begin_ + trail_.size());
      return rules[alternative_];
    }
    trail_.pop_back();
  }
  skip_unmatched(match_begin_);
  return gDfa::no_rule;
}
