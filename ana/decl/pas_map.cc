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
