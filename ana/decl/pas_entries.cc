// Entries of the blocks: types, variables, constants, fields, and the values of enumerations.
#include <algorithm>

#include "ana/decl/pas_reader.h"

namespace Decl {

gDeclaration & gPasReader::add(gKind kind, std::uint32_t name) {
  gPasToken const & token = view_[name];
  gPasSource const & source = view_.source();
  gDeclaration item;
  item.kind = kind;
  item.scope = frame().scope;
  item.access = frame().access;
  item.name = {token.begin, token.end};
  item.line = source.line_of(token.begin);
  item.column = token.begin - source.lines[item.line - 1] + 1;
  item.condition = source.condition_at(token.begin);
  item.statement = static_cast<std::int32_t>(out_.items.size());
  if (section_ == gPascalContext::implementation)
    item.marks |= mark_implementation;
  out_.items.push_back(item);
  return out_.items.back();
}

void gPasReader::entry(Block block) {
  Statement statement;
  statement.begin = at_;
  statement.attributes = attributes_;
  statement.is_type = block == Block::types;
  statement.first_item = static_cast<std::uint32_t>(out_.items.size());
  if (view_.word(at_) == gPasWord::generic && view_.is_name(at_ + 1))
    ++at_;
  bool const field = in_class();
  gKind kind = field                ? gKind::member
               : frame().class_part ? gKind::thread_variable
                                    : gKind::variable;
  if (block == Block::types)
    kind = gKind::type;
  else if (block == Block::constants)
    kind = gKind::constant;
  else if (block == Block::resource_strings)
    kind = gKind::resource_string;
  if (!names(statement, kind)) {
    out_.items.resize(statement.first_item);
    at_ = statement.begin;
    fault("no declaration");
    return;
  }
  attributes_ = {};
  // "A = {$I file}" has its value and its ";" there.
  std::uint32_t const next = at_ + 1;
  if (view_.is_name(next) && (view_.sign(next + 1) == '=' || view_.sign(next + 1) == ':') &&
      taken_in(next)) {
    at_ = next;
    statement.complete = true;
    finish_statement(statement);
    return;
  }
  if (statement.is_type || view_.sign(at_) == ':')
    type_of(statement, at_ + 1);
  else
    finish_statement(statement);
}

// The names, and for a type its "<...>". Stops at ":" or "=".
bool gPasReader::names(Statement & statement, gKind kind) {
  for (;; ++at_) {
    bool const field = in_class() && view_.sign(at_) == pas_word_sign && view_.sign(at_ + 1) == ':';
    if ((!view_.is_name(at_) && !field) || at_ >= limit())
      return false;
    gDeclaration & item = add(kind, at_++);
    item.statement = static_cast<std::int32_t>(statement.first_item);
    if (frame().class_part && in_class())
      item.marks |= mark_class_member;
    ++statement.names;
    if (statement.is_type && view_.sign(at_) == '<') {
      std::uint32_t const behind = view_.behind_angles(at_, limit());
      item.template_head = view_.range(at_, behind);
      at_ = behind;
    }
    if (view_.sign(at_) != ',')
      break;
  }
  char const sign = view_.sign(at_);
  if (statement.is_type)
    return sign == '=' && statement.names == 1;
  bool const constant = kind == gKind::constant || kind == gKind::resource_string;
  return (sign == ':' || (constant && sign == '=')) && (!constant || statement.names == 1) &&
         at_ < limit();
}

void gPasReader::type_of(Statement & statement, std::uint32_t at) {
  gPasType const type = pas_type(view_, at, limit());
  apply_type(statement, type);
  if (type.contents == gPasType::nothing) {
    at_ = std::max(type.end, at);
    finish_statement(statement);
    return;
  }
  gPasToken const & opener = view_[type.opener];
  bool const open_end = opener.open_end && type.contents == gPasType::members;
  statement.complete = open_end;
  if (type.contents == gPasType::members) {
    open_members(statement, type);
    return;
  }
  values(type.head_end, std::min(opener.partner, limit()),
         static_cast<std::int32_t>(statement.first_item));
  at_ = std::min(type.end, limit());
  finish_statement(statement);
}

// What the type says of the names in front of it.
void gPasReader::apply_type(Statement & statement, gPasType const & type) {
  statement.procedural = type.procedural;
  statement.members = type.contents == gPasType::members;
  if (statement.members)
    statement.head_end = type.head_end;
  else if (type.contents == gPasType::values)
    statement.head_end = type.opener;
  gRange const whole =
      view_.range(at_ + 1, type.contents == gPasType::members ? type.head_end : type.end);
  auto const first_param = static_cast<std::uint32_t>(out_.parameters.size());
  std::uint32_t params = 0;
  if (statement.is_type && type.params != gPasToken::no_partner)
    params = pas_parameters(view_, type.params, out_.parameters);
  for (std::uint32_t at = 0; at < statement.names; ++at) {
    gDeclaration & item = out_.items[statement.first_item + at];
    item.result = whole;
    if (type.contents == gPasType::members)
      item.body.begin = view_[type.head_end - 1].end;
    else if (type.contents == gPasType::values)
      item.body.begin = view_[type.opener].begin;
    if (!statement.is_type) {
      if (item.kind == gKind::constant)
        item.kind = gKind::typed_constant;
      continue;
    }
    item.kind = type.kind;
    item.bases = type.bases;
    item.attributes = type.guid;
    if (type.procedural) {
      item.result = type.result;
      item.parameter_list = type.params == gPasToken::no_partner
                                ? gRange()
                                : view_.range(type.params, view_.behind(type.params));
      item.first_param = first_param;
      item.params = params;
      if (type.method) {
        event_types_.insert(small_letters(item.name.of(view_.source().text)));
      }
    }
    if (type.forward)
      item.marks |= mark_forward;
    else if (type.contents != gPasType::nothing)
      item.marks |= mark_definition;
  }
}

void gPasReader::open_members(Statement const & statement, gPasType const & type) {
  gPasToken const & opener = view_[type.opener];
  Frame inner;
  inner.kind = Frame::members;
  inner.scope = static_cast<std::int32_t>(statement.first_item);
  inner.end = std::min(opener.partner, limit());
  inner.protocol = opener.word == gPasWord::objcprotocol;
  bool const is_class = opener.word == gPasWord::class_ && type.kind == gKind::class_;
  inner.access = is_class ? gAccess::published : gAccess::public_;
  inner.statement = statement;
  at_ = type.guid.empty() ? type.head_end : view_.behind(type.head_end);
  frames_.push_back(std::move(inner));
  note_state();
}

// From behind the type to the end of the statement, for all of its names.
void gPasReader::finish_statement(Statement const & statement) {
  gRange value, trailing;
  bool semicolon = false;
  std::uint32_t const end =
      statement.complete ? at_ : value_end(statement, at_, value, trailing, semicolon);
  std::uint32_t const text_end = semicolon ? end - 1 : end;
  gPasSource const & source = view_.source();
  for (std::uint32_t at = 0; at < statement.names; ++at) {
    gDeclaration & item = out_.items[statement.first_item + at];
    item.whole = item.text = view_.range(statement.begin, end);
    item.text.end = view_.range(statement.begin, text_end).end;
    if (statement.head_end > 0) {
      if (statement.is_type || statement.members)
        item.text.end = view_[statement.head_end - 1].end;
      item.body.end = view_[at_ - 1].end;
    }
    if (!statement.attributes.empty()) {
      item.attributes = statement.attributes;
      item.whole.begin = statement.attributes.begin;
    }
    item.initialiser = value;
    item.trailing = trailing;
    item.end_line = source.line_of(std::max(item.whole.end, 1u) - 1);
  }
  at_ = end;
}

// Finds value and directives; answers the first token behind the statement.
std::uint32_t gPasReader::value_end(Statement const & statement, std::uint32_t at, gRange & value,
                                    gRange & trailing, bool & semicolon) {
  std::uint32_t value_begin = 0, trailing_begin = 0;
  auto const settle = [&](std::uint32_t end) {
    if (value_begin != 0 && value.empty())
      value = view_.range(value_begin, end);
    if (trailing_begin != 0)
      trailing = view_.range(trailing_begin, end);
  };
  for (; at < limit(); at = view_.behind(at)) {
    char const sign = view_.sign(at);
    if (sign == ';') {
      settle(at);
      if (!goes_on(statement, at + 1)) {
        semicolon = true;
        return at + 1;
      }
      value_begin = value.empty() ? 0 : value_begin;
      trailing_begin = trailing_begin == 0 ? at + 1 : trailing_begin;
    } else if (view_.begins_other(at) || next_entry(statement, at)) {
      settle(at);
      if (!taken_in(at))
        report(at, at, "`;` is missing");
      return at;
    } else if (sign == '=' && value_begin == 0 && !statement.is_type) {
      settle(at);
      value_begin = at + 1;
      trailing_begin = 0;
    } else if ((view_.marks(at) & pas_directive) != 0 && value_begin != 0 && at > value_begin &&
               view_.sign(at - 1) != '.' && view_.word(at) != gPasWord::far &&
               view_.word(at) != gPasWord::near && trailing_begin == 0 &&
               (view_.word(at) == gPasWord::deprecated || view_.word(at) == gPasWord::platform ||
                view_.word(at) == gPasWord::experimental)) {
      value = view_.range(value_begin, at);
      trailing_begin = at;
    } else if (value_begin == 0 && trailing_begin == 0) {
      trailing_begin = at;
    }
  }
  settle(std::min(at, limit()));
  return std::min(at, limit());
}

// Behind ";": directives of procedural types, and those of variables.
bool gPasReader::goes_on(Statement const & statement, std::uint32_t at) const {
  if (at >= limit())
    return false;
  char const behind = view_.sign(at + 1);
  if (behind == ':' || behind == ',')
    return false;
  std::uint8_t const marks = view_.marks(at);
  bool const directive = (marks & pas_directive) != 0 &&
                         ((marks & pas_access) == 0 || !in_class()) &&
                         (behind != '=' || (statement.procedural && !statement.is_type));
  if (statement.procedural)
    return (directive && view_.word(at) != gPasWord::library) ||
           (view_.is_name(at) && behind == ';');
  switch (view_.word(at)) {
  case gPasWord::far:
  case gPasWord::near:
  case gPasWord::huge:
    return behind == ';';
  case gPasWord::cvar:
  case gPasWord::external:
  case gPasWord::export_:
  case gPasWord::weakexternal:
  case gPasWord::static_:
  case gPasWord::section:
    return !statement.is_type && behind != '=';
  case gPasWord::public_:
    return !statement.is_type && !in_class() && behind != '=';
  default:
    return false;
  }
}

// A name behind an operand can only begin the next entry.
bool gPasReader::next_entry(Statement const & statement, std::uint32_t at) const {
  char const sign = view_.sign(at + 1);
  if ((sign != '=' && sign != ':') || !view_.is_name(at) || at <= statement.begin + 1)
    return false;
  gPasToken const & before = view_[at - 1];
  bool const operand =
      before.sign == pas_number || before.sign == pas_text || before.sign == ')' ||
      before.sign == ']' || before.sign == '>' ||
      (before.sign == pas_word_sign &&
       (before.word == gPasWord::end || (pas_word_marks(before.word) & pas_reserved) == 0));
  return operand && (view_.marks(at) & pas_directive) == 0;
}

// Values of an enumeration

void gPasReader::values(std::uint32_t open, std::uint32_t close, std::int32_t scope) {
  for (std::uint32_t at = open; at < close;) {
    std::uint32_t const begin = at;
    while (at < close && view_.sign(at) != ',')
      at = view_.behind(at);
    enumerator(begin, std::min(at, close), scope);
    ++at;
  }
}

void gPasReader::enumerator(std::uint32_t begin, std::uint32_t end, std::int32_t scope) {
  while (begin < end && view_.sign(begin) == '[')
    begin = view_.behind(begin);
  if (begin >= end)
    return;
  bool const valued = view_.sign(begin + 1) == '=' || view_.sign(begin + 1) == pas_assign;
  if (!view_.is_name(begin) || (end > begin + 1 && !valued)) {
    report(begin, end, "no value of an enumeration");
    return;
  }
  gDeclaration & item = add(gKind::enumerator, begin);
  item.scope = scope;
  item.whole = item.text = view_.range(begin, end);
  item.end_line = view_.source().line_of(item.whole.end - 1);
  if (valued)
    item.initialiser = view_.range(begin + 2, end);
}

} // namespace Decl
