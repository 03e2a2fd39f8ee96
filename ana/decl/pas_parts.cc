// Views of tokens, and types.
#include "ana/decl/pas_parts.h"

#include <algorithm>

namespace Decl {

std::uint32_t gPasView::behind(std::uint32_t at) const {
  gPasToken const & token = (*this)[at];
  if (token.partner == gPasToken::no_partner)
    return at + 1;
  return std::max(token.partner + (token.open_end ? 0 : 1), at + 1);
}

gRange gPasView::range(std::uint32_t from, std::uint32_t to) const {
  if (to <= from || from >= size())
    return {};
  return {(*this)[from].begin, (*this)[std::min(to, size()) - 1].end};
}

bool gPasView::begins_other(std::uint32_t at) const {
  gPasToken const & token = (*this)[at];
  return token.line_start && (pas_word_marks(token.word) & pas_head) != 0;
}

std::uint32_t gPasView::behind_angles(std::uint32_t at, std::uint32_t limit) const {
  std::uint32_t depth = 0;
  for (std::uint32_t i = at; i < limit; ++i) {
    char const c = sign(i);
    if (c == '<')
      ++depth;
    else if (c == '>' && --depth == 0)
      return i + 1;
    else if (c == '(' || c == ')' || c == '=' || (c == pas_assign) || begins_other(i) ||
             word(i) == gPasWord::end)
      break;
  }
  return at;
}

namespace {

// Reads a type from the outside in: each step takes one word and leaves the rest to the next.
class TypeReader {
public:
  TypeReader(gPasView const & view, std::uint32_t at, std::uint32_t limit)
      : view_(view),
        at_(at),
        limit_(limit) {}

  gPasType made() {
    while (at_ < limit_ && prefix())
      ;
    if (at_ < limit_)
      core();
    type_.end = at_;
    return type_;
  }

private:
  gPasView const & view_;
  gPasType type_;
  std::uint32_t at_, limit_;
  bool outer_ = true; // nothing gave the whole its kind yet

  void kind(gKind kind) {
    if (outer_)
      type_.kind = kind;
    outer_ = false;
  }

  // Words in front of another type.
  bool prefix() {
    gPasWord const word = view_.word(at_);
    if (view_.sign(at_) == '^') {
      kind(gKind::type);
      ++at_;
      return true;
    }
    switch (word) {
    case gPasWord::packed:
    case gPasWord::bitpacked:
    case gPasWord::specialize:
      ++at_;
      return true;
    case gPasWord::type:
      if (view_.word(at_ + 1) == gPasWord::helper &&
          view_[at_ + 1].partner != gPasToken::no_partner)
        return false;
      ++at_;
      return true;
    case gPasWord::array:
      kind(gKind::type);
      ++at_;
      if (view_.sign(at_) == '[')
        at_ = view_.behind(at_);
      return of();
    case gPasWord::set:
      kind(gKind::set);
      ++at_;
      return of();
    case gPasWord::file:
      kind(gKind::type);
      ++at_;
      return of();
    case gPasWord::reference:
      if (view_.word(at_ + 1) != gPasWord::to)
        return false;
      type_.method = true;
      at_ += 2;
      return true;
    default:
      return false;
    }
  }

  bool of() {
    bool const found = view_.word(at_) == gPasWord::of;
    at_ += found;
    return found;
  }

  void core() {
    switch (view_.word(at_)) {
    case gPasWord::class_:
    case gPasWord::object:
    case gPasWord::record:
    case gPasWord::interface:
    case gPasWord::dispinterface:
    case gPasWord::objcclass:
    case gPasWord::objcprotocol:
    case gPasWord::objccategory:
    case gPasWord::cppclass:
      scope();
      return;
    case gPasWord::type: // "type helper"
      ++at_;
      scope();
      return;
    case gPasWord::procedure:
    case gPasWord::function:
      signature();
      return;
    default:
      if (view_.sign(at_) == '(' && closes_values())
        values();
      else
        expression();
    }
  }

  // "(a, b)" is an enumeration, "(1 + 2) .. 5" a range.
  bool closes_values() const {
    std::uint32_t const behind = view_.behind(at_);
    return (view_.is_name(at_ + 1) || view_.sign(at_ + 1) == ')') &&
           view_.sign(behind) != pas_dots && view_.sign(behind) != '*' &&
           view_.sign(behind) != '+' && view_.sign(behind) != '-';
  }

  void values() {
    kind(gKind::enumeration);
    type_.contents = gPasType::values;
    type_.opener = at_;
    type_.head_end = at_ + 1;
    at_ = view_.behind(at_);
  }

  static gKind scope_kind(gPasWord word) {
    switch (word) {
    case gPasWord::record:
      return gKind::record;
    case gPasWord::object:
      return gKind::object;
    case gPasWord::interface:
    case gPasWord::objcprotocol:
      return gKind::interface;
    case gPasWord::dispinterface:
      return gKind::dispinterface;
    case gPasWord::helper:
      return gKind::type_helper;
    default:
      return gKind::class_;
    }
  }

  static gKind helper_kind(gPasWord word) {
    return word == gPasWord::record   ? gKind::record_helper
           : word == gPasWord::class_ ? gKind::class_helper
                                      : gKind::type_helper;
  }

  void scope() {
    std::uint32_t const opener = at_;
    gPasWord const word = view_.word(at_);
    ++at_;
    if (word == gPasWord::class_ && view_.word(at_) == gPasWord::of) {
      kind(gKind::class_reference);
      ++at_;
      expression();
      return;
    }
    bool const has_contents = view_[opener].partner != gPasToken::no_partner;
    bool const helper = view_.word(at_) == gPasWord::helper && view_.sign(at_ + 1) != ':';
    kind(helper ? helper_kind(word) : scope_kind(word));
    scope_head(helper || word == gPasWord::helper);
    type_.forward = !has_contents && type_.bases.empty();
    if (!has_contents)
      return;
    type_.contents = gPasType::members;
    type_.opener = opener;
    type_.head_end = at_;
    if (view_.sign(at_) == '[' && view_.sign(at_ + 1) == pas_text)
      type_.guid = view_.range(at_, view_.behind(at_));
    at_ = view_.behind(opener);
  }

  // Modifiers, bases, and what a helper is for.
  void scope_head(bool helper) {
    for (;; ++at_) {
      gPasWord const word = view_.word(at_);
      bool const modifier = word == gPasWord::abstract || word == gPasWord::sealed ||
                            word == gPasWord::helper || word == gPasWord::external;
      bool const field = view_.sign(at_ + 1) == ':' || view_.sign(at_ + 1) == ',';
      if (!modifier || field)
        break;
      if (word == gPasWord::external)
        external_name();
    }
    if (view_.sign(at_) == '(') {
      std::uint32_t const behind = view_.behind(at_);
      type_.bases = view_.range(at_ + 1, behind - (view_[at_].open_end ? 0 : 1));
      at_ = behind;
    }
    if (helper && view_.word(at_) == gPasWord::for_) {
      std::uint32_t const begin = ++at_;
      while (view_.sign(at_) == pas_word_sign && (at_ == begin || view_.sign(at_ - 1) == '.') &&
             view_.sign(at_ + 1) == '.')
        at_ += 2;
      ++at_;
      at_ = view_.behind_angles(at_, limit_);
      if (type_.bases.empty())
        type_.bases = view_.range(begin, at_);
    }
  }

  // external 'unit' name 'class'
  void external_name() {
    while (view_.sign(at_ + 1) == pas_text ||
           (view_.word(at_ + 1) == gPasWord::name && view_.sign(at_ + 2) == pas_text))
      ++at_;
  }

  void signature() {
    kind(gKind::type);
    type_.procedural = true;
    ++at_;
    if (view_.sign(at_) == '(') {
      type_.params = at_;
      at_ = view_.behind(at_);
    }
    if (view_.sign(at_) == ':') {
      std::uint32_t const begin = ++at_;
      expression();
      type_.result = view_.range(begin, at_);
    }
    if (view_.word(at_) == gPasWord::of && view_.word(at_ + 1) == gPasWord::object) {
      type_.method = true;
      at_ += 2;
    } else if (view_.word(at_) == gPasWord::is) { // "is nested"
      at_ += 2;
    }
  }

  // A name, a range, "string[20]": until what no type holds.
  void expression() {
    for (std::uint32_t const begin = at_; at_ < limit_; at_ = view_.behind(at_)) {
      char const sign = view_.sign(at_);
      if (sign == ';' || sign == '=' || sign == ')' || sign == pas_assign ||
          view_.begins_other(at_))
        return;
      gPasWord const word = view_.word(at_);
      bool const hint = (pas_word_marks(word) & pas_directive) != 0 || word == gPasWord::absolute ||
                        word == gPasWord::of || word == gPasWord::is || word == gPasWord::end;
      if (at_ > begin && hint)
        return;
      bool const operand = sign == pas_word_sign || sign == pas_number || sign == pas_text;
      if (at_ > begin && operand && view_[at_].line_start && after_operand() &&
          (view_.sign(at_ + 1) == ':' || view_.sign(at_ + 1) == '='))
        return; // the next declaration, behind a missing ";"
    }
  }

  bool after_operand() const {
    char const sign = view_.sign(at_ - 1);
    return sign == pas_word_sign || sign == pas_number || sign == pas_text || sign == ')' ||
           sign == ']' || sign == '>';
  }
};

} // namespace

gPasType pas_type(gPasView const & view, std::uint32_t at, std::uint32_t limit) {
  return TypeReader(view, at, limit).made();
}

} // namespace Decl
