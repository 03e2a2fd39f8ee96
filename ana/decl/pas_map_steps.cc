// Steps of the map of openers, and how they are taken back: of a conditional's branches not all may
// count, so what is pushed and popped behind a mark is noted.
#include <algorithm>

#include "ana/decl/pas_map.h"

namespace Decl {

void gPasMap::push(Kind kind, std::uint32_t token) {
  Entry entry;
  bool const bracket = kind == round || kind == square;
  entry.token = token;
  entry.kind = kind;
  entry.base = bracket ? base() : kind;
  if (bracket && !stack_.empty()) {
    entry.rounds = stack_.back().rounds;
    entry.squares = stack_.back().squares;
  }
  entry.rounds += kind == round;
  entry.squares += kind == square;
  entry.fresh = kind == type || kind == routine;
  if (entry.base != block)
    entry.column = line_column();
  entry.body = kind == block || kind == assembler ? top() == routine : false;
  stack_.push_back(entry);
  if (marks_ > 0)
    log_.push_back({entry, true});
}

void gPasMap::pop() {
  if (marks_ > 0)
    log_.push_back({stack_.back(), false});
  stack_.pop_back();
  low_ = std::min(low_, static_cast<std::uint32_t>(stack_.size()));
}

// A routine ends with its body.
void gPasMap::close(std::uint32_t closer) {
  bool const body = stack_.back().body;
  tokens_[stack_.back().token].partner = closer;
  pop();
  if (body && top() == routine) {
    closed_routine_ = stack_.back().token;
    tokens_[closed_routine_].partner = closer;
    pop();
  } else if (top() == routine && stack_.back().bodyless) {
    pop();
  }
}

gPasMap::Mark gPasMap::mark() {
  Mark mark;
  mark.log = log_.size();
  mark.height = static_cast<std::uint32_t>(stack_.size());
  mark.low = low_;
  mark.section = section_;
  mark.faults = faults_.size();
  mark.ended = ended_;
  low_ = mark.height;
  ++marks_;
  return mark;
}

bool gPasMap::even_since(Mark const & mark) const {
  return stack_.size() == mark.height && low_ >= mark.height && section_ == mark.section &&
         ended_ == mark.ended;
}

void gPasMap::settle_heads(Mark const & mark) {
  if (stack_.size() < mark.height + 2 || low_ < mark.height)
    return;
  for (std::size_t at = mark.height; at < stack_.size(); ++at)
    if (stack_[at].kind != routine || stack_[at].other_words)
      return;
  while (stack_.size() > mark.height)
    pop();
}

void gPasMap::renew(Mark & mark) const {
  mark.log = log_.size();
  mark.faults = faults_.size();
}

void gPasMap::drop_to(Mark const & mark) {
  while (log_.size() > mark.log) {
    Step const & step = log_.back();
    if (step.pushed) {
      stack_.pop_back();
    } else {
      stack_.push_back(step.entry);
      tokens_[step.entry.token].partner = gPasToken::no_partner;
      tokens_[step.entry.token].open_end = false;
    }
    log_.pop_back();
  }
  low_ = mark.height;
  section_ = mark.section;
  ended_ = mark.ended;
  faults_.resize(std::min(faults_.size(), mark.faults));
}

void gPasMap::forget(Mark const & mark) {
  low_ = std::min(low_, mark.low);
  if (--marks_ == 0)
    log_.clear();
}

} // namespace Decl
