// The map of openers. A stack of what is open; a routine's head counts as an opener where bodies
// follow, so that nested routines and local declarations lie within their routine's pair.
#include "ana/decl/pas_map.h"

#include <algorithm>

namespace Decl {

namespace {

bool is_routine_word(gPasWord word) {
  return word == gPasWord::procedure || word == gPasWord::function ||
         word == gPasWord::constructor || word == gPasWord::destructor ||
         word == gPasWord::operator_;
}

bool is_type_word(gPasWord word) {
  return word == gPasWord::class_ || word == gPasWord::object || word == gPasWord::interface ||
         word == gPasWord::dispinterface || word == gPasWord::objcclass ||
         word == gPasWord::objcprotocol || word == gPasWord::objccategory ||
         word == gPasWord::cppclass;
}

bool is_packed(gPasWord word) {
  return word == gPasWord::packed || word == gPasWord::bitpacked;
}

} // namespace

gPasMap::gPasMap(std::string_view text, std::vector<gPasToken> & tokens,
                 std::vector<gPasFault> & faults, gPascalContext const & context, bool has_bodies)
    : text_(text),
      tokens_(tokens),
      faults_(faults),
      section_(context.section) {
  if (has_bodies)
    section_ = gPascalContext::implementation;
  else if (section_ == gPascalContext::any)
    section_ = gPascalContext::interface;
}

// The token so many places in front of the last one.
gPasToken const & gPasMap::before(std::uint32_t count) const {
  static constexpr gPasToken nothing;
  return tokens_.size() > count ? tokens_[tokens_.size() - 1 - count] : nothing;
}

gPasMap::Kind gPasMap::base() const {
  return stack_.empty() ? none : stack_.back().base;
}

std::uint32_t gPasMap::column_of(std::uint32_t token) const {
  std::uint32_t const begin = tokens_[token].begin;
  std::uint32_t column = 0;
  while (column < begin && column < 400 && text_[begin - column - 1] != '\n')
    ++column;
  return column;
}

// Brackets within statements are of no concern to declarations.
void gPasMap::report(std::uint32_t token, char const * reason) {
  if (base() == block && (top() == round || top() == square || tokens_[token].sign == ')' ||
                          tokens_[token].sign == ']'))
    return;
  gPasToken const & at = tokens_[token];
  faults_.push_back({{at.begin, at.end}, reason});
}

// Steps

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

bool gPasMap::between_declarations() const {
  if (tokens_.empty())
    return true;
  gPasToken const & token = tokens_.back();
  if (!stack_.empty()) {
    Entry const & entry = stack_.back();
    if (entry.kind == type && entry.fresh)
      return token.sign == ')' || token.sign == ']' || token.word == gPasWord::record;
    bool const list = entry.kind == round && entry.base != block;
    if (list && (token.sign == ',' || token.sign == '('))
      return entry.token > 0 && tokens_[entry.token - 1].sign != pas_word_sign;
    if (list && token.sign == ';' && entry.token > 0)
      return tokens_[entry.token - 1].sign != pas_word_sign;
  }
  if (token.sign == ';' || token.sign == ',')
    return true;
  std::uint8_t const marks = pas_word_marks(token.word);
  return token.word == gPasWord::end ? false : (marks & (pas_head | pas_access)) != 0;
}

// Tokens

void gPasMap::take() {
  gPasToken const token = tokens_.back();
  if (token.line_start)
    line_first_ = last();
  if (top() == type && stack_.back().fresh)
    age_type();
  switch (token.sign) {
  case '(':
    push(round, last());
    return;
  case '[':
    push(square, last());
    return;
  case ')':
    close_bracket(round);
    return;
  case ']':
    close_bracket(square);
    return;
  case ';':
    while (top() == square && !holds_parameters(stack_.back()))
      close_open(last(), "`[` without `]`");
    return;
  case '.':
    if (before().word == gPasWord::end && tokens_.size() > 1)
      last_end();
    return;
  case '=':
    repair_at_entry();
    return;
  case pas_word_sign:
    if (token.line_start)
      repair_bases();
    word(token.word);
    return;
  default:
    return;
  }
}

bool gPasMap::holds_values(Entry const & bracket) const {
  char const front = bracket.token > 0 ? tokens_[bracket.token - 1].sign : '\0';
  return front == '=' || front == '(' || front == ',';
}

// "property Items[a: T; b: U]"
bool gPasMap::holds_parameters(Entry const & square) const {
  return square.token > 1 && tokens_[square.token - 2].word == gPasWord::property;
}

// A type's head may end with ";": it has no contents then. The word "record" in a generic's
// constraints opens nothing either.
void gPasMap::age_type() {
  gPasToken const & token = tokens_.back();
  bool const direct = stack_.back().token + 1 == last();
  if (token.sign == ';' || (direct && (token.word == gPasWord::of || token.sign == '>' ||
                                       token.sign == ',' || token.sign == ')'))) {
    pop();
    return;
  }
  switch (token.word) {
  case gPasWord::abstract:
  case gPasWord::sealed:
  case gPasWord::helper:
  case gPasWord::external:
  case gPasWord::name:
    return;
  default:
    stack_.back().fresh = token.sign == '(' || token.sign == pas_text;
  }
}

void gPasMap::word(gPasWord word) {
  if (is_routine_word(before().word))
    head_name();
  switch (word) {
  case gPasWord::none:
    return;
  case gPasWord::begin:
    if (top() == type || ((top() == round || top() == square) && base() != block))
      close_brackets("bracket without its partner");
    while (top() == type)
      close_open(last(), "`end` of the type is missing");
    if (top() == none && section_ == gPascalContext::interface)
      section_ = gPascalContext::implementation;
    push(block, last());
    return;
  case gPasWord::try_:
    push(block, last());
    return;
  case gPasWord::asm_:
    push(assembler, last());
    return;
  case gPasWord::case_:
    if (base() != type && !(top() == none && section_ == gPascalContext::members))
      push(block, last());
    return;
  case gPasWord::end:
    end_word();
    return;
  case gPasWord::record:
    push(type, last());
    return;
  case gPasWord::helper:
    if (before().word == gPasWord::type && before(2).sign == '=')
      push(type, last());
    return;
  default:
    if (is_type_word(word))
      type_word(word);
    else if (pas_word_marks(word) != pas_name)
      section_word(word);
  }
}

void gPasMap::type_word(gPasWord word) {
  bool const packed = is_packed(before().word);
  if (before(packed ? 2 : 1).sign == '=')
    push(type, last());
  else if (word == gPasWord::interface && top() != type)
    section_word(word);
}

void gPasMap::section_word(gPasWord word) {
  gPasToken const & token = tokens_.back();
  switch (word) {
  case gPasWord::interface:
    section_ = gPascalContext::interface;
    return;
  case gPasWord::implementation:
    if (!token.line_start && top() != none)
      return;
    leave_all("`end` is missing");
    ended_ = false;
    section_ = gPascalContext::implementation;
    return;
  case gPasWord::program:
  case gPasWord::library:
    if (tokens_.size() == 1)
      section_ = gPascalContext::implementation;
    return;
  case gPasWord::initialization:
  case gPasWord::finalization:
    if (token.line_start) {
      leave_all("`end` is missing");
      ended_ = false;
    }
    return;
  case gPasWord::forward:
  case gPasWord::external:
  case gPasWord::weakexternal:
  case gPasWord::internproc:
  case gPasWord::syscall:
    routine_elsewhere();
    return;
  case gPasWord::type:
  case gPasWord::resourcestring:
  case gPasWord::threadvar:
  case gPasWord::uses:
  case gPasWord::exports:
    if (token.line_start && before().sign != '=' && before().sign != ':')
      repair_at_head();
    break;
  case gPasWord::var:
  case gPasWord::const_:
    while (token.line_start && top() == round && base() != block && holds_values(stack_.back()))
      close_open(last(), "`(` without `)`");
    break;
  default:
    break;
  }
  if (stack_.empty())
    return;
  std::uint8_t const marks = pas_word_marks(word);
  if (top() == type && (marks & (pas_head | pas_access)) != 0 && !is_routine_word(word) &&
      word != gPasWord::property)
    stack_.back().part = word;
  if (top() == routine && (marks & pas_head) != 0) {
    stack_.back().fresh = false;
    stack_.back().other_words |= !is_routine_word(word);
  }
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
      front != '<')
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

// The last token follows the word of a routine: a name makes a head of it.
void gPasMap::head_name() {
  std::uint32_t const head = last() - 1;
  gPasToken const & name = tokens_.back();
  if ((pas_word_marks(name.word) & pas_reserved) != 0 && tokens_[head].word != gPasWord::operator_)
    return;
  gPasToken const & front = before(2);
  bool const typed = front.sign == '=' || front.sign == ':' || front.word == gPasWord::of ||
                     front.word == gPasWord::to || front.sign == pas_assign;
  if (typed)
    return;
  std::uint32_t const first = front.word == gPasWord::class_ ? head - 1 : head;
  while (tokens_[first].line_start && (top() == round || top() == square || top() == block))
    close_open(first, top() == block ? "`end` is missing" : "bracket without its partner");
  if (heads_have_bodies() && (top() == routine || top() == none))
    begin_routine(head);
}

void gPasMap::begin_routine(std::uint32_t head) {
  if (top() == routine)
    stack_.back().fresh = false;
  push(routine, head);
}

// Directives of a routine whose body is elsewhere.
void gPasMap::routine_elsewhere() {
  bool const bracket = top() == square;
  std::size_t const depth = bracket ? 2 : 1;
  if (stack_.size() < depth)
    return;
  Entry & entry = stack_[stack_.size() - depth];
  gPasToken const & front = before();
  bool const name = is_routine_word(front.word) || front.sign == '.' || front.sign == ':';
  if (entry.kind != routine || !entry.fresh || name || (bracket && entry.kind != routine))
    return;
  if (bracket)
    entry.bodyless = true;
  else
    pop();
}

// "end" of nothing may be the last one of the file, which the next token tells.
void gPasMap::end_word() {
  close_brackets("bracket without its partner");
  if (top() == block || top() == assembler || top() == type)
    close(last());
}

// "end.": a block in front of it is no routine's, even if some head still waits for one.
void gPasMap::last_end() {
  if (closed_routine_ < tokens_.size() && tokens_[closed_routine_].partner + 1 == last())
    tokens_[closed_routine_].partner = gPasToken::no_partner;
  leave_all("`end` is missing");
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

void gPasMap::finish() {
  auto const size = static_cast<std::uint32_t>(tokens_.size());
  while (!stack_.empty()) {
    if (top() == routine)
      pop();
    else
      close_open(size, "`end` is missing");
  }
}

} // namespace Decl
