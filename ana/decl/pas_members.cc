// Contents of classes and records.
#include <algorithm>

#include "ana/decl/pas_reader.h"

namespace Decl {

void gPasReader::leave_frame() {
  Frame const left = std::move(frames_.back());
  frames_.pop_back();
  attributes_ = {};
  if (frames_.empty())
    return;
  at_ = left.end;
  if (left.kind == Frame::variants) {
    ++at_;
    return;
  }
  if (!left.statement.complete)
    at_ = std::min(at_ + 1, limit());
  note_state();
  finish_statement(left.statement);
}

void gPasReader::member_step() {
  gPasWord const word = view_.word(at_);
  if (view_.sign(at_) == ';') {
    ++at_;
  } else if (view_.sign(at_) == '[') {
    attribute();
  } else if (access_word(word)) {
    return;
  } else if (is_routine(at_)) {
    routine();
  } else if (word == gPasWord::property ||
             (word == gPasWord::class_ && view_.word(at_ + 1) == gPasWord::property)) {
    property();
  } else if (word == gPasWord::type) {
    member_block(Block::types, false);
  } else if (word == gPasWord::const_) {
    member_block(Block::constants, false);
  } else if (word == gPasWord::var || word == gPasWord::threadvar) {
    member_block(Block::variables, false);
  } else if (word == gPasWord::class_ &&
             (view_.word(at_ + 1) == gPasWord::var || view_.word(at_ + 1) == gPasWord::threadvar)) {
    ++at_;
    member_block(Block::variables, true);
  } else if (word == gPasWord::case_) {
    variant_part();
  } else if (frame().labels) {
    label();
  } else if (frames_.size() == 1 && !has_head_ && begins_statement()) {
    skip_statements();
  } else if (word == gPasWord::final && view_.sign(at_ + 1) == pas_word_sign) {
    ++at_;
  } else if (view_.sign(at_) == pas_word_sign &&
             (view_.is_name(at_) || view_.sign(at_ + 1) == ':')) {
    entry(frame().block);
  } else {
    fault("no member");
  }
}

bool gPasReader::access_word(gPasWord word) {
  char const behind = view_.sign(at_ + 1);
  if (behind == ':' || behind == ',' || behind == '=')
    return false;
  bool const strict = word == gPasWord::strict;
  gPasWord const access = strict ? view_.word(at_ + 1) : word;
  gAccess found = gAccess::none;
  switch (access) {
  case gPasWord::private_:
    found = strict ? gAccess::strict_private : gAccess::private_;
    break;
  case gPasWord::protected_:
    found = strict ? gAccess::strict_protected : gAccess::protected_;
    break;
  case gPasWord::public_:
    found = gAccess::public_;
    break;
  case gPasWord::published:
  case gPasWord::automated:
    found = gAccess::published;
    break;
  default:
    break;
  }
  bool const optional = frame().protocol && (same_word(view_.text(at_), "required") ||
                                             same_word(view_.text(at_), "optional"));
  if (found == gAccess::none && !optional)
    return false;
  // "type public" opens both.
  bool const both = at_ > 0 && view_.word(at_ - 1) == gPasWord::type;
  at_ += strict;
  if (!optional)
    frame().access = found;
  member_block(both ? Block::types : Block::none, false);
  return true;
}

void gPasReader::member_block(Block block, bool class_part) {
  frame().class_part = class_part;
  frame().labels = false;
  open_block(block);
}

// "case tag: T of": the tag is a field; what follows are labels with fields in brackets.
void gPasReader::variant_part() {
  std::uint32_t const name = at_ + 1;
  std::uint32_t of = at_ + 1;
  while (of < limit() && view_.word(of) != gPasWord::of && view_.sign(of) != ';')
    of = view_.behind(of);
  if (name < limit() && view_.is_name(name) && view_.sign(name + 1) == ':') {
    gDeclaration & item = add(gKind::member, name);
    item.whole = item.text = view_.range(name, std::min(of, limit()));
    item.result = view_.range(name + 2, std::min(of, limit()));
    item.end_line = view_.source().line_of(item.whole.end - 1);
  }
  at_ = std::min(of + 1, limit());
  frame().labels = true;
  frame().block = Block::none;
}

// "1, 2: (" leads into the brackets; anything else ends the variants.
void gPasReader::label() {
  std::uint32_t at = at_;
  while (at < limit() && view_.sign(at) != ':' && view_.sign(at) != ';')
    at = view_.behind(at);
  bool const fields = view_.sign(at) == ':' && view_.sign(at + 1) == '(' && at + 1 < limit();
  if (!fields) {
    frame().labels = false;
    return;
  }
  Frame inner;
  inner.kind = Frame::variants;
  inner.access = frame().access;
  inner.scope = frame().scope;
  inner.end = std::min(view_[at + 1].partner, limit());
  at_ = at + 2;
  frames_.push_back(std::move(inner));
}

// Properties

void gPasReader::property() {
  std::uint32_t const begin = at_;
  bool const of_class = view_.word(at_) == gPasWord::class_;
  at_ += of_class ? 2 : 1;
  bool const named =
      at_ < limit() && view_.sign(at_) == pas_word_sign && (view_.marks(at_) & pas_reserved) == 0;
  if (!named) {
    at_ = begin;
    fault("a property without a name");
    return;
  }
  gRange const attributes = attributes_;
  attributes_ = {};
  gDeclaration & item = add(gKind::property, at_);
  if (of_class)
    item.marks |= mark_class_member;
  property_parts(item, at_ + 1);
  bool const semicolon = view_.sign(at_ - 1) == ';';
  item.whole = item.text = view_.range(begin, at_);
  item.text.end = view_.range(begin, semicolon ? at_ - 1 : at_).end;
  if (!attributes.empty()) {
    item.attributes = attributes;
    item.whole.begin = attributes.begin;
  }
  item.end_line = view_.source().line_of(item.whole.end - 1);
  if (is_event(item))
    item.kind = gKind::event;
}

// Parameters, type, specifiers; leaves `at_` behind all.
void gPasReader::property_parts(gDeclaration & item, std::uint32_t at) {
  if (view_.sign(at) == '[') {
    item.first_param = static_cast<std::uint32_t>(out_.parameters.size());
    item.params = pas_parameters(view_, at, out_.parameters);
    item.parameter_list = view_.range(at, view_.behind(at));
    at = view_.behind(at);
  }
  auto const ends = [&](std::uint32_t at_token) {
    return at_token >= limit() || view_.sign(at_token) == ';' || view_.begins_other(at_token);
  };
  if (view_.sign(at) == ':') {
    std::uint32_t const type = ++at;
    while (!ends(at) && ((view_.marks(at) & pas_specifier) == 0 || at == type))
      at = view_.behind(at);
    item.result = view_.range(type, at);
  }
  std::uint32_t const specifiers = at;
  while (!ends(at))
    at = view_.behind(at);
  item.initialiser = view_.range(specifiers, at);
  if (view_.sign(at) != ';' && at < limit() && !taken_in(at))
    report(at, at, "`;` is missing");
  std::uint32_t const trailing = at + 1;
  while (view_.sign(at) == ';' && at + 1 < limit()) {
    gPasWord const word = view_.word(at + 1);
    char const behind = view_.sign(at + 2);
    bool const more = (pas_word_marks(word) & (pas_specifier | pas_directive)) != 0 &&
                      (pas_word_marks(word) & pas_access) == 0 && behind != ':' && behind != ',' &&
                      behind != '=';
    if (!more)
      break;
    ++at;
    if (word == gPasWord::deprecated)
      item.marks |= mark_deprecated;
    while (!ends(at))
      at = view_.behind(at);
    item.trailing = view_.range(trailing, at);
  }
  at_ = std::min(at + (view_.sign(at) == ';' && at < limit() ? 1 : 0), limit());
}

bool gPasReader::is_event(gDeclaration const & item) const {
  std::string_view const text = view_.source().text;
  std::string_view const name = item.name.of(text);
  std::string_view const type = item.result.of(text);
  std::string const small = small_letters(type.substr(0, 200));
  if (event_types_.contains(small) || small.ends_with("event") || small.ends_with("eventhandler"))
    return true;
  bool const named = name.size() > 2 && (name[0] == 'O' || name[0] == 'o') &&
                     (name[1] == 'N' || name[1] == 'n') && name[2] >= 'A' && name[2] <= 'Z';
  if (!named)
    return false;
  for (std::string_view const plain : {"boolean", "integer", "string", "cardinal", "byte", "word"})
    if (small == plain)
      return false;
  return name[1] == 'n' || small.empty() || small.ends_with("proc") || small.ends_with("method");
}

// Routines

bool gPasReader::is_routine(std::uint32_t at) const {
  if (view_.word(at) == gPasWord::generic && view_.sign(at + 1) == pas_word_sign)
    ++at;
  if (view_.word(at) == gPasWord::class_)
    ++at;
  switch (view_.word(at)) {
  case gPasWord::procedure:
  case gPasWord::function:
  case gPasWord::constructor:
  case gPasWord::destructor:
    return true;
  case gPasWord::operator_: {
    char const behind = view_.sign(at + 1);
    return behind != ':' && behind != ',' && behind != '.' && behind != ';';
  }
  default:
    return false;
  }
}

gKind gPasReader::routine_kind(gPasHead const & head) const {
  switch (head.word) {
  case gPasWord::constructor:
    return gKind::constructor;
  case gPasWord::destructor:
    return gKind::destructor;
  case gPasWord::operator_:
    return gKind::operator_;
  default:
    break;
  }
  bool const method = in_class() || !head.qualifier.empty();
  if (!method)
    return head.word == gPasWord::function ? gKind::function : gKind::procedure;
  if (head.class_member)
    return gKind::class_method;
  return (head.marks & mark_message) != 0 ? gKind::message_method : gKind::method;
}

void gPasReader::routine() {
  std::uint32_t const begin = at_;
  gPasHead const head = pas_head_of(view_, at_, limit(), in_class());
  if (!head.found || head.end > limit()) {
    fault("a routine without a name");
    return;
  }
  gRange const attributes = attributes_;
  attributes_ = {};
  gPasSource const & source = view_.source();
  std::uint32_t name = head.word_at;
  while (view_[name].begin < head.name.begin)
    ++name;
  gDeclaration & item = add(routine_kind(head), name);
  item.name = head.name;
  item.qualifier = head.qualifier;
  item.template_head = head.template_head;
  item.result = head.result;
  item.trailing = head.trailing;
  item.initialiser = head.target;
  item.marks |= head.marks;
  if (head.class_member)
    item.marks |= mark_class_member;
  if (!head.qualifier.empty() && !in_class())
    item.marks |= mark_out_of_class;
  if (head.params != gPasToken::no_partner) {
    item.first_param = static_cast<std::uint32_t>(out_.parameters.size());
    item.params = pas_parameters(view_, head.params, out_.parameters);
    item.parameter_list = view_.range(head.params, view_.behind(head.params));
  }
  at_ = head.end;
  gPasToken const & word = view_[head.word_at];
  if (word.partner != gPasToken::no_partner && frames_.size() == 1) {
    item.marks |= mark_definition;
    at_ = std::max(at_, std::min(view_.behind(head.word_at), limit()));
    item.body = view_.range(head.end, at_);
    at_ += view_.sign(at_) == ';' && at_ < limit();
  } else if (!head.semicolon && at_ < limit() && !taken_in(at_)) {
    report(at_, at_, "`;` is missing");
  }
  item.whole = view_.range(begin, at_);
  item.text = view_.range(begin, head.text_end);
  if (!attributes.empty()) {
    item.attributes = attributes;
    item.whole.begin = attributes.begin;
  }
  item.end_line = source.line_of(std::max(item.whole.end, 1u) - 1);
}

} // namespace Decl
