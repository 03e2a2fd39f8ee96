// Groups in parentheses: which one holds the parameters, which wraps the name, and which is of a
// macro.
#include "ana/decl/cpp_declarator_reader.h"
#include "ana/decl/cpp_heads.h"

namespace Decl {

namespace {

constexpr int most_parentheses = 32; // around a name

} // namespace

void gDeclaratorReader::group() {
  std::uint32_t const close = source_.partner(at_);
  if (close == no_token || close >= last_)
    return open_group();
  if (wraps_name(close))
    return wrapped(close);
  if (name_.empty() || name_.last != at_) {
    at_ = close + 1;
    macros_ = true;
    return;
  }
  candidate(close);
}

// A "(" that is never closed behind a name: parameters that nothing is known of.
void gDeclaratorReader::open_group() {
  if (name_.empty() || name_.last != at_ || types_ == 0) {
    ++at_;
    return;
  }
  result_.function = true;
  take_name();
  result_.trailing = last_;
  end(last_);
}

// "(*name)", "(CALL * name)", "(A::*name)", "(name)".
bool gDeclaratorReader::wraps_name(std::uint32_t close) const {
  std::uint32_t at = at_ + 1;
  if (at >= close || place_.depth > most_parentheses)
    return false;
  source_.link_angles(at, close);
  std::uint8_t const behind = type(close + 1);
  // "(*name) OF((int))" has its list in a macro.
  bool const macro =
      source_.is_name(close + 1) && type(close + 2) == '(' && source_.type(close + 3) == '(';
  bool const list =
      behind == '(' || behind == '[' || (macro && close + 2 < last_ && source_.type(at) == '*');
  bool const sign = has_pointer_sign(at, close, list);
  if (!name_.empty() && name_.last == at_ &&
      (names_constructor(source_, name_) || is_constructor(name_)))
    return false;
  // Directly behind a name they are parameters, unless a list follows: "T (*name)(int)".
  if (sign)
    return list || (types_ > 0 && (name_.empty() || name_.last != at_));
  // "int (name)(int)", "MACRO(name)(int)", "MACRO(type, name)(int)".
  return list && first_in_group(close) + 1 == close && source_.is_name(close - 1) &&
         !is_lone_name(close + 1) && (types_ > 0 || !name_.empty() || macros_);
}

// Where the declarator in parentheses begins: behind the type in a macro's "(type, name)".
std::uint32_t gDeclaratorReader::first_in_group(std::uint32_t close) const {
  bool const typed = !name_.empty() && name_.last == at_ && source_.is_capital(name_.name_first) &&
                     close > at_ + 2 && type(close - 2) == ',';
  return typed ? close - 1 : at_ + 1;
}

// "(name)" with a list behind it.
bool gDeclaratorReader::is_lone_name(std::uint32_t at) const {
  return type(at) == '(' && at + 3 < last_ && source_.partner(at) == at + 2 &&
         source_.is_name(at + 1) && type(at + 3) == '(';
}

// Nothing but calling conventions, macros, attributes and the class of a member pointer stand in
// front of the sign.
bool gDeclaratorReader::has_pointer_sign(std::uint32_t at, std::uint32_t close, bool list) const {
  while (at < close) {
    std::uint8_t const kind = source_.type(at);
    if (kind == '*' || kind == '&' || kind == '^' || kind == token_both)
      return true;
    gChain const chain = read_chain(source_, at, close);
    if (chain.kind == gChain::member_pointer)
      return true;
    bool const macro = chain.last == at + 1 && (list || source_.is_capital(at));
    std::uint32_t const behind = behind_attribute(source_, at);
    if (behind == at && !macro && !is_specifier(source_.word(at)))
      return false;
    at = std::max(behind, at + 1);
  }
  return false;
}

void gDeclaratorReader::wrapped(std::uint32_t close) {
  bool const sign = has_pointer_sign(first_in_group(close), close, true);
  gDeclaratorPlace inner_place;
  inner_place.type_known = true;
  inner_place.depth = place_.depth + 1;
  gDeclarator const inner = read_declarator(source_, first_in_group(close), close, inner_place);
  result_.name = inner.name;
  result_.pointer = sign && !inner.function;
  result_.function = inner.function || (!sign && type(close + 1) == '(');
  result_.type_last = at_;
  if (inner.function) {
    result_.parameters = inner.parameters;
    at_ = close + 1;
  } else if (type(close + 1) == '(') {
    result_.parameters = close + 1;
    at_ = source_.behind(close + 1);
  } else
    at_ = close + 1;
  if (!sign && result_.function)
    name_ = {};
  finish_function_or_pointer();
}

void gDeclaratorReader::finish_function_or_pointer() {
  result_.trailing = at_;
  if (result_.function) {
    behind_parameters();
    return;
  }
  for (; at_ < last_; at_ = is_opener(at_) ? source_.behind(at_) : at_ + 1) {
    if (type(at_) == ',')
      break;
    if (type(at_) == '=' || type(at_) == '{') {
      at_ += type(at_) == '=' ? 1 : 0;
      skip_value();
      break;
    }
  }
  end(at_);
}

bool gDeclaratorReader::is_constructor(gChain const & chain) const {
  return place_.in_class && chain.kind == gChain::plain && chain.qualifier_last == chain.first &&
         (types_ == 0 || (!before_.empty() && source_.is_capital(before_.name_first))) &&
         source_.spelling(chain.name_first) == place_.class_name;
}

// A name directly in front of a group.
void gDeclaratorReader::candidate(std::uint32_t close) {
  if (names_constructor(source_, name_) || is_constructor(name_))
    return accept(close, true);
  if (takes_list_in_two(close))
    return around_list(close);
  bool const guards_name = place_.with_body || is_empty_macro();
  if (is_macro_behind_name() && !guards_name && (close + 1 == last_ || type(close + 1) == ',')) {
    at_ = close + 1; // "typedef int T DEPRECATED(1)"
    return;
  }
  if (!before_.empty() && before_.last == name_.first && types_ > 1 && guards_name &&
      (is_empty_macro() || is_macro_behind_name())) {
    std::uint32_t const list = at_;
    name_ = before_; // "name NO_MACRO(int)"
    before_ = {};
    at_ = list;
  }
  bool const typed = types_ > 0 || macros_ || !before_.empty();
  std::uint32_t const behind = close + 1;
  if (type(behind) == '(' && !typed && !place_.parameter) {
    accept(close, false);
    result_.call = true;
    return;
  }
  bool const goes_on =
      type(behind) == token_word && !is_trailing(word(behind)) && word(behind) != gWord::default_;
  bool const star = type(behind) == '*' || type(behind) == token_scope || type(behind) == '~';
  if ((goes_on || star) && is_macro_call(typed, behind)) {
    macros_ = true;
    name_ = before_ = {};
    at_ = behind;
    return;
  }
  if (typed && is_initialiser(close)) {
    result_.value_first = at_ + 1;
    result_.value_last = close;
    std::uint32_t const end_at = next_comma(behind);
    return variable(end_at);
  }
  accept(close, false);
  result_.call = !typed && type(behind) != token_arrow;
}

bool gDeclaratorReader::is_empty_macro() const {
  gMacroFact const * fact = source_.macros.find(source_.spelling(name_.name_first));
  return fact && fact->sense == gMacroSense::nothing && !fact->with_parameters;
}

// "name OF((int a))".
bool gDeclaratorReader::takes_list_in_two(std::uint32_t close) const {
  return !before_.empty() && source_.type(at_ + 1) == '(' &&
         source_.partner(at_ + 1) == close - 1 && name_.name_last == at_ &&
         name_.qualifier_last == name_.first;
}

void gDeclaratorReader::around_list(std::uint32_t close) {
  name_ = before_;
  result_.parameters = at_ + 1;
  at_ = close + 1;
  take_name();
  result_.function = true;
  result_.trailing = at_;
  behind_parameters();
}

bool gDeclaratorReader::is_macro_call(bool typed, std::uint32_t behind) const {
  gMacroSense const sense = source_.sense(name_.name_first);
  if (sense == gMacroSense::attribute || sense == gMacroSense::nothing ||
      sense == gMacroSense::type)
    return true;
  if (typed)
    return false;
  bool const capital = source_.is_capital(name_.name_first);
  if (type(behind) != token_word)
    return capital && type(behind) == '*';
  if (capital)
    return true;
  return !source_.is_capital(behind) && !source_.is_attribute_macro(behind);
}

// Arguments rather than parameters: "T x(5)", "T x(a.b)".
bool gDeclaratorReader::is_initialiser(std::uint32_t close) const {
  if (place_.in_class || place_.with_body || place_.parameter || at_ + 1 == close)
    return false;
  std::uint8_t const first = source_.type(at_ + 1);
  if (first == token_number || first == token_string || first == token_character || first == '-' ||
      first == '&' || first == '*' || first == '!' || first == '{' ||
      source_.is_word(at_ + 1, gWord::this_) || source_.is_word(at_ + 1, gWord::statement))
    return true;
  for (std::uint32_t at = at_ + 1; at < close;) {
    std::uint8_t const kind = source_.type(at);
    if (kind == '.' || kind == token_arrow || kind == '+' || kind == '/' || kind == token_string)
      return true;
    if (kind == '=')
      return false;
    at = kind == '(' || kind == '[' || kind == '{' ? source_.behind(at) : at + 1;
  }
  return false;
}

void gDeclaratorReader::accept(std::uint32_t close, bool constructor) {
  result_.constructor = constructor && name_.kind == gChain::plain;
  result_.function = true;
  result_.parameters = at_;
  take_name();
  at_ = close + 1;
  result_.trailing = at_;
  behind_parameters();
}

// To the "," of the next declarator.
void gDeclaratorReader::behind_parameters() {
  for (; at_ < last_; at_ = is_opener(at_) ? source_.behind(at_) : at_ + 1) {
    if (type(at_) == '<' && source_.partner(at_) != no_token)
      at_ = source_.partner(at_);
    else if (type(at_) == '=') {
      ++at_;
      skip_value();
      break;
    } else if (type(at_) == ',')
      break;
  }
  end(std::min(at_, last_));
}

} // namespace Decl
