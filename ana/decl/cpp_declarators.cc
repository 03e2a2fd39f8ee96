// Without types a name is found by its place: the last one in front of a parameter list, a "=", a
// "[", a "," or the end. What is doubtful is which of several groups in parentheses holds the
// parameters; macros take arguments, too.
#include "ana/decl/cpp_declarator_reader.h"
#include "ana/decl/cpp_heads.h"

namespace Decl {

gDeclarator gDeclaratorReader::run() {
  while (at_ < last_ && !done_)
    token();
  if (!done_)
    variable(last_);
  return result_;
}

void gDeclaratorReader::token() {
  switch (type(at_)) {
  case token_word:
  case token_scope:
  case '~':
    word_or_name();
    return;
  case '(':
    group();
    return;
  case '[':
    square();
    return;
  case '=':
    ++at_;
    value();
    return;
  case '{':
    value();
    return;
  case ':':
    result_.bits = true;
    ++at_;
    value();
    return;
  case ',':
    variable(at_);
    return;
  case '*':
  case '&':
  case '^':
  case token_both:
    name_is_type();
    ++at_;
    return;
  case token_ellipsis:
    if (place_.parameter && !name_.empty() && types_ == 0)
      name_is_type();
    ++at_;
    return;
  default:
    ++at_;
  }
}

void gDeclaratorReader::square() {
  // What stands behind is still next to the name: "f [[x]] ()", "a[2] ATTRIBUTE".
  if (!name_.empty() && name_.last == at_)
    name_.last = source_.behind(at_);
  at_ = source_.behind(at_);
}

void gDeclaratorReader::name_is_type() {
  if (!name_.empty())
    ++types_;
  name_ = before_ = {};
}

void gDeclaratorReader::word_or_name() {
  gWord const one = word(at_);
  if (std::uint32_t const behind = behind_attribute(source_, at_); behind != at_) {
    at_ = behind;
    return;
  }
  if (one == gWord::type_call || one == gWord::noexcept_ || one == gWord::throw_ ||
      one == gWord::explicit_) {
    types_ += one == gWord::type_call ? 1 : 0;
    name_is_type();
    ++at_;
    if (type(at_) == '(')
      at_ = source_.behind(at_);
    return;
  }
  if (one == gWord::requires_) {
    at_ = behind_constraint(source_, at_ + 1, last_);
    return;
  }
  if (is_class_key(one))
    return class_type();
  if (is_type_word(one)) {
    name_is_type();
    ++types_;
    ++at_;
    return;
  }
  chain();
}

// "struct X": the name belongs to the type.
void gDeclaratorReader::class_type() {
  for (++at_; at_ < last_ && (is_class_key(word(at_)) || behind_attribute(source_, at_) != at_);)
    at_ = std::max(at_ + 1, behind_attribute(source_, at_));
  gChain const name = read_chain(source_, at_, last_);
  if (name.empty())
    return;
  at_ = std::max(name.last, at_ + 1);
  ++types_;
  name_ = before_ = {};
}

void gDeclaratorReader::chain() {
  gChain const one = read_chain(source_, at_, last_);
  if (one.empty()) {
    if (one.first != at_ || type(at_) != token_word || word(at_) == gWord::name)
      name_is_type();
    ++at_; // const, static ...
    return;
  }
  if (!name_.empty()) {
    if (!source_.is_attribute_macro(name_.name_first) && !is_reserved_macro(name_))
      ++types_;
    before_ = name_;
  }
  name_ = one;
  at_ = one.last;
  if (one.kind == gChain::member_pointer)
    name_is_type();
}

bool gDeclaratorReader::is_opener(std::uint32_t at) const {
  return type(at) == '(' || type(at) == '[' || type(at) == '{';
}

void gDeclaratorReader::take_name() {
  result_.name = name_;
  result_.type_last = name_.first;
}

void gDeclaratorReader::value() {
  skip_value();
  variable(at_);
}

void gDeclaratorReader::skip_value() {
  result_.value_first = at_;
  at_ = next_comma(at_);
  result_.value_last = at_;
}

std::uint32_t gDeclaratorReader::next_comma(std::uint32_t at) const {
  while (at < last_ && type(at) != ',') {
    bool const jump = is_opener(at) || (type(at) == '<' && source_.partner(at) != no_token);
    at = jump ? source_.behind(at) : at + 1;
  }
  return at;
}

void gDeclaratorReader::variable(std::uint32_t end_at) {
  // "int x ATTRIBUTE": the name stands in front of the macro.
  if (is_macro_behind_name())
    name_ = before_;
  bool const unnamed = place_.parameter && types_ == 0 && before_.empty() && !macros_;
  if (!unnamed)
    take_name();
  end(end_at);
}

// "__aligned": a word of the compiler or of the system's headers.
bool gDeclaratorReader::is_reserved(gChain const & name) const {
  return source_.spelling(name.name_first).starts_with("__");
}

// "__IO uint32_t MODE": such a word in front of a type is a macro for "volatile" or the like.
bool gDeclaratorReader::is_reserved_macro(gChain const & name) const {
  return is_reserved(name) && source_.is_capital(name.name_first) &&
         name.name_last - name.first == 1;
}

bool gDeclaratorReader::is_macro_behind_name() const {
  if (before_.empty() || name_.empty() || before_.last != name_.first || types_ < 2 ||
      name_.name_last - name_.first != 1)
    return false;
  if (source_.is_known_attribute(name_.name_first))
    return true;
  if (source_.spelling(before_.name_first).ends_with("_t"))
    return false;
  bool const looks_so =
      (source_.is_capital(name_.name_first) && !source_.is_capital(before_.name_first)) ||
      (is_reserved(name_) && !is_reserved(before_));
  return looks_so && source_.sense(name_.name_first) != gMacroSense::type;
}

void gDeclaratorReader::end(std::uint32_t at) {
  result_.last = at;
  at_ = at;
  done_ = true;
}

gDeclarator read_declarator(gSource const & source, std::uint32_t first, std::uint32_t last,
                            gDeclaratorPlace const & place) {
  return gDeclaratorReader(source, first, last, place).run();
}

} // namespace Decl
