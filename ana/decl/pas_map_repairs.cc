// Where a closer is missing: words and columns at line heads say where it must have stood.
#include "ana/decl/pas_map.h"

namespace Decl {

// Brackets within statements are of no concern to declarations.
void gPasMap::report(std::uint32_t token, char const * reason) {
  if (base() == block && (top() == round || top() == square || tokens_[token].sign == ')' ||
                          tokens_[token].sign == ']'))
    return;
  gPasToken const & at = tokens_[token];
  faults_.push_back({{at.begin, at.end}, reason});
}

// The top ends in front of the token `at`.
void gPasMap::close_open(std::uint32_t at, char const * reason) {
  gPasToken & opener = tokens_[stack_.back().token];
  report(stack_.back().token, reason);
  opener.open_end = true;
  bool const body = stack_.back().body;
  opener.partner = at;
  pop();
  if (body && top() == routine) {
    tokens_[stack_.back().token].open_end = true;
    tokens_[stack_.back().token].partner = at;
    pop();
  }
}

void gPasMap::close_brackets(char const * reason) {
  while (top() == round || top() == square)
    close_open(last(), reason);
}

void gPasMap::close_bracket(Kind kind) {
  bool const open =
      !stack_.empty() && (kind == round ? stack_.back().rounds : stack_.back().squares) > 0;
  if (!open) {
    report(last(), kind == round ? "`)` without `(`" : "`]` without `[`");
    return;
  }
  while (top() != kind)
    close_open(last(), top() == round ? "`(` without `)`" : "`[` without `]`");
  close(last());
}

bool gPasMap::holds_values(Entry const & bracket) const {
  char const front = bracket.token > 0 ? tokens_[bracket.token - 1].sign : '\0';
  return front == '=' || front == '(' || front == ',';
}

// "property Items[a: T; b: U]"
bool gPasMap::holds_parameters(Entry const & square) const {
  return square.token > 1 && tokens_[square.token - 2].word == gPasWord::property;
}

// "Name =" at a line's head begins an entry. Fields and values have none, so an open type or
// bracket has lost its end, unless it has types of its own: then the column tells.
void gPasMap::repair_at_entry() {
  if (tokens_.size() < 2 || !before().line_start || before().sign != pas_word_sign)
    return;
  std::uint32_t const name = last() - 1;
  if (before(2).sign == ',' || before(2).sign == '(') // a value of an enumeration
    return;
  while (!stack_.empty()) {
    Entry const & entry = stack_.back();
    bool const bracket = (entry.kind == round || entry.kind == square) && entry.base != block &&
                         entry.base != routine && column_of(name) <= entry.column;
    bool const own_types = entry.part == gPasWord::type || entry.part == gPasWord::const_;
    bool const lost = entry.kind == type && (!own_types || column_of(name) <= entry.column) &&
                      entry.token + 2 < name;
    if (!bracket && !lost)
      return;
    close_open(name, bracket ? "bracket without its partner" : "`end` of the type is missing");
  }
}

// Bases go on behind a comma.
void gPasMap::repair_bases() {
  if (stack_.size() < 2 || top() != round)
    return;
  Entry const & below = stack_[stack_.size() - 2];
  char const front = before().sign;
  if (below.kind == type && below.fresh && front != ',' && front != '(' && front != '.' &&
      front != '<' && before().word != gPasWord::specialize)
    close_open(last(), "`(` without `)`");
}

// A word at a line's head that stands in no block: what is open above the routines has lost its
// end.
void gPasMap::repair_at_head() {
  while (top() == round || top() == square || top() == block)
    close_open(last(), top() == block ? "`end` is missing" : "bracket without its partner");
  while (top() == type && line_column() < stack_.back().column)
    close_open(last(), "`end` of the type is missing");
}

void gPasMap::leave_all(char const * reason) {
  while (!stack_.empty()) {
    if (top() == routine)
      pop();
    else
      close_open(last(), reason);
  }
  ended_ = true;
}

} // namespace Decl
