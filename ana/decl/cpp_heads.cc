#include "ana/decl/cpp_heads.h"

namespace Decl {

std::uint32_t behind_attribute(gSource const & source, std::uint32_t at) {
  if (source.type(at) == '[' && source.type(at + 1) == '[')
    return source.behind(at);
  gWord const word = source.word(at);
  if (word != gWord::attribute && word != gWord::asm_)
    return at;
  ++at;
  return source.type(at) == '(' ? source.behind(at) : at;
}

std::uint32_t mark_of(gWord word) {
  switch (word) {
  case gWord::friend_:
    return mark_friend;
  case gWord::extern_:
    return mark_extern;
  case gWord::static_:
    return mark_static;
  case gWord::inline_:
    return mark_inline;
  case gWord::virtual_:
    return mark_virtual;
  case gWord::explicit_:
    return mark_explicit;
  case gWord::mutable_:
    return mark_mutable;
  case gWord::thread_local_:
    return mark_thread_local;
  case gWord::constexpr_:
    return mark_constexpr;
  case gWord::typedef_:
    return mark_typedef;
  default:
    return 0;
  }
}

namespace {

constexpr int most_macros = 8; // in front of one declaration

// One operand of a constraint: (...), requires(...) {...}, a::b<c>(...), true.
std::uint32_t behind_operand(gSource const & source, std::uint32_t at, std::uint32_t last) {
  while (source.type(at) == '!')
    ++at;
  if (source.type(at) == '(')
    return source.behind(at);
  if (source.is_word(at, gWord::requires_)) {
    ++at;
    if (source.type(at) == '(')
      at = source.behind(at);
    return source.type(at) == '{' ? source.behind(at) : at;
  }
  while (at < last) {
    std::uint8_t const type = source.type(at);
    if (type == '<' && source.partner(at) != no_token)
      at = source.behind(at);
    else if (type == token_scope) {
      ++at;
      continue;
    } else if (type == token_number)
      ++at;
    else if (source.is_name(at) || source.is_word(at, gWord::type_call)) {
      ++at;
      if (source.type(at) == '(')
        at = source.behind(at);
    } else if (source.is_word(at, gWord::typename_) || source.is_word(at, gWord::template_)) {
      ++at;
      continue;
    } else
      return at;
    if (source.type(at) != token_scope && source.type(at) != '<')
      return at;
  }
  return at;
}

class HeadReader {
public:
  HeadReader(gSource const & source, std::uint32_t first, std::uint32_t last)
      : source_(source),
        last_(last) {
    head_.next = first;
  }

  gHead run() {
    std::uint32_t const first = head_.next;
    while (head_.next < last_ && step()) {
    }
    if ((head_.attributes_last > 0 || head_.looked_through) && says_deprecated(first))
      head_.marks |= mark_deprecated;
    return head_;
  }

private:
  gSource const & source_;
  std::uint32_t last_;
  gHead head_;

  bool says_deprecated(std::uint32_t first) const {
    std::string_view const text = source_.range(first, head_.next).of(source_.text);
    return text.find("deprecated") != text.npos || text.find("DEPRECATED") != text.npos;
  }

  bool step() {
    std::uint32_t const at = head_.next;
    if (std::uint32_t const behind = behind_attribute(source_, at);
        behind != at && !source_.is_word(at, gWord::asm_))
      return attribute(behind);
    gWord const word = source_.word(at);
    if (word == gWord::template_)
      return template_head();
    if (word == gWord::extern_ && source_.type(at + 1) == token_string) {
      head_.marks |= mark_linkage_c;
      return to(at + 2);
    }
    if (word == gWord::explicit_ && source_.type(at + 1) == '(') {
      head_.marks |= mark_explicit;
      return to(source_.behind(at + 1));
    }
    if (is_specifier(word) || word == gWord::typedef_) {
      head_.marks |= mark_of(word);
      return to(at + 1);
    }
    return source_.is_name(at) && macro();
  }

  bool to(std::uint32_t next) {
    head_.next = next;
    return true;
  }

  bool attribute(std::uint32_t behind) {
    if (head_.attributes_last == 0)
      head_.attributes_first = head_.next;
    head_.attributes_last = behind;
    return to(behind);
  }

  bool template_head() {
    std::uint32_t at = head_.next;
    if (head_.macro_head) { // what is shown has no place for both
      head_.macro_head = false;
      head_.template_last = 0;
    }
    if (source_.type(at + 1) != '<') {
      head_.instantiation = true;
      head_.marks |= mark_specialisation;
      return to(at + 1);
    }
    if (source_.partner(at + 1) == no_token)
      return false;
    if (head_.template_last == 0)
      head_.template_first = at;
    if (source_.partner(at + 1) == at + 2)
      head_.marks |= mark_specialisation;
    at = source_.behind(at + 1);
    if (source_.is_word(at, gWord::requires_))
      at = behind_constraint(source_, at + 1, last_);
    head_.template_last = at;
    return to(at);
  }

  // Behind further macros, "A B(1) static".
  std::uint32_t behind_macros(std::uint32_t at) const {
    for (int count = 0;
         count < most_macros && at < last_ && source_.is_name(at) && source_.is_capital(at);
         ++count) {
      ++at;
      if (source_.type(at) == '(')
        at = source_.behind(at);
    }
    return at;
  }

  // A name in front of a specifier, or one that is known to say nothing of a type.
  bool macro() {
    std::uint32_t const at = head_.next;
    bool const arguments = source_.type(at + 1) == '(';
    std::uint32_t const behind = arguments ? source_.behind(at + 1) : at + 1;
    if (behind >= last_ || source_.type(behind) == token_scope || source_.type(behind) == '<')
      return false;
    gWord const next = source_.word(behind_macros(behind));
    bool const word_behind = source_.type(behind) == token_word;
    bool const before_specifier =
        word_behind && ((is_specifier(next) && next != gWord::specifier) ||
                        next == gWord::template_ || next == gWord::typedef_ || is_class_key(next) ||
                        is_type_word(next) || next == gWord::using_ || next == gWord::namespace_);
    bool const known = source_.is_attribute_macro(at) && word_behind &&
                       (next == gWord::name || next == gWord::const_ || next == gWord::typename_ ||
                        next == gWord::operator_ || next == gWord::volatile_);
    bool const attribute_behind = source_.is_attribute_macro(at) &&
                                  (source_.type(behind) == '~' || source_.type(behind) == '[');
    if (!before_specifier && !known && !attribute_behind)
      return false;
    // A constructor's name isn't a macro, nor is the name of a variable.
    if (arguments && !source_.is_capital(at) && !source_.is_known_attribute(at))
      return false;
    head_.looked_through = true;
    if (!arguments && head_.template_last == 0 && stands_for_head(at)) {
      head_.template_first = at;
      head_.template_last = behind;
      head_.macro_head = true;
    }
    return to(behind);
  }

  bool stands_for_head(std::uint32_t at) const {
    gMacroFact const * const fact = source_.macros.find(source_.spelling(at));
    return fact && is_template_head(fact->body);
  }
};

} // namespace

std::uint32_t behind_constraint(gSource const & source, std::uint32_t at, std::uint32_t last) {
  for (;;) {
    at = behind_operand(source, at, last);
    bool const more = at < last && (source.type(at) == token_both ||
                                    (source.type(at) == token_op && source.spelling(at) == "||"));
    if (!more)
      return at;
    ++at;
  }
}

gHead read_head(gSource const & source, std::uint32_t first, std::uint32_t last) {
  return HeadReader(source, first, last).run();
}

} // namespace Decl
