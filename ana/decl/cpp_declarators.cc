// Without types a name is found by its place: the last one in front of a parameter list, a "=", a
// "[", a "," or the end. What is doubtful is which of several groups in parentheses holds the
// parameters; macros take arguments, too.
#include "ana/decl/cpp_declarators.h"

#include "ana/decl/cpp_heads.h"

namespace Decl {

namespace {

constexpr int most_parentheses = 32; // around a name

class DeclaratorReader {
public:
  DeclaratorReader(gSource const & source, std::uint32_t first, std::uint32_t last,
                   gDeclaratorPlace const & place)
      : source_(source),
        last_(last),
        place_(place),
        at_(first),
        types_(place.type_known ? 1 : 0) {
    result_.first = first;
  }

  gDeclarator run() {
    while (at_ < last_ && !done_)
      token();
    if (!done_)
      variable(last_);
    return result_;
  }

private:
  gSource const & source_;
  std::uint32_t const last_;
  gDeclaratorPlace const & place_;
  std::uint32_t at_;
  int types_;            // words in front that may be a type
  bool macros_ = false;  // a call that may stand for a type
  bool keyword_ = false; // the last type was a word of the language
  gChain name_, before_; // the last two chains, next to each other
  bool done_ = false;
  gDeclarator result_;

  std::uint8_t type(std::uint32_t at) const { return at < last_ ? source_.type(at) : 0; }
  gWord word(std::uint32_t at) const { return at < last_ ? source_.word(at) : gWord::name; }

  void token() {
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

  void square() {
    // What stands behind is still next to the name: "f [[x]] ()", "a[2] ATTRIBUTE".
    if (!name_.empty() && name_.last == at_)
      name_.last = source_.behind(at_);
    at_ = source_.behind(at_);
  }

  void name_is_type() {
    if (!name_.empty())
      ++types_;
    name_ = before_ = {};
  }

  void word_or_name() {
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
      keyword_ = true;
      ++at_;
      return;
    }
    chain();
  }

  // "struct X": the name belongs to the type.
  void class_type() {
    for (++at_; at_ < last_ && (is_class_key(word(at_)) || behind_attribute(source_, at_) != at_);)
      at_ = std::max(at_ + 1, behind_attribute(source_, at_));
    gChain const name = read_chain(source_, at_, last_);
    if (name.empty())
      return;
    at_ = std::max(name.last, at_ + 1);
    ++types_;
    name_ = before_ = {};
  }

  void chain() {
    gChain const one = read_chain(source_, at_, last_);
    if (one.empty()) {
      if (one.first != at_ || type(at_) != token_word || word(at_) == gWord::name)
        name_is_type();
      ++at_; // const, static ...
      return;
    }
    if (!name_.empty()) {
      if (!source_.is_attribute_macro(name_.name_first))
        ++types_;
      before_ = name_;
    }
    name_ = one;
    at_ = one.last;
    if (one.kind == gChain::member_pointer)
      name_is_type();
    keyword_ = false;
  }

  // Parentheses.

  void group() {
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
  void open_group() {
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
  bool wraps_name(std::uint32_t close) const {
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
    // "int (name)(int)", "MACRO(name)(int)".
    return list && close == at + 1 && source_.is_name(at) && !is_lone_name(close + 1) &&
           (types_ > 0 || !name_.empty() || macros_);
  }

  // "(name)" with a list behind it.
  bool is_lone_name(std::uint32_t at) const {
    return type(at) == '(' && at + 3 < last_ && source_.partner(at) == at + 2 &&
           source_.is_name(at + 1) && type(at + 3) == '(';
  }

  // Nothing but calling conventions, macros, attributes and the class of a member pointer stand in
  // front of the sign.
  bool has_pointer_sign(std::uint32_t at, std::uint32_t close, bool list) const {
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

  void wrapped(std::uint32_t close) {
    bool const sign = has_pointer_sign(at_ + 1, close, true);
    gDeclaratorPlace inner_place;
    inner_place.type_known = true;
    inner_place.depth = place_.depth + 1;
    gDeclarator const inner = read_declarator(source_, at_ + 1, close, inner_place);
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

  void finish_function_or_pointer() {
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

  bool is_opener(std::uint32_t at) const {
    return type(at) == '(' || type(at) == '[' || type(at) == '{';
  }

  bool is_constructor(gChain const & chain) const {
    return place_.in_class && chain.kind == gChain::plain && chain.qualifier_last == chain.first &&
           (types_ == 0 || (!before_.empty() && source_.is_capital(before_.name_first))) &&
           source_.spelling(chain.name_first) == place_.class_name;
  }

  // A name directly in front of a group.
  void candidate(std::uint32_t close) {
    if (names_constructor(source_, name_) || is_constructor(name_))
      return accept(close, true);
    if (takes_list_in_two(close))
      return around_list(close);
    if (is_macro_behind_name() && (close + 1 == last_ || type(close + 1) == ',')) {
      at_ = close + 1; // "typedef int T DEPRECATED(1)"
      return;
    }
    if (!before_.empty() && before_.last == name_.first && types_ > 1 && is_empty_macro()) {
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

  bool is_empty_macro() const {
    gMacroFact const * fact = source_.macros.find(source_.spelling(name_.name_first));
    return fact && fact->sense == gMacroSense::nothing && !fact->with_parameters;
  }

  // "name OF((int a))".
  bool takes_list_in_two(std::uint32_t close) const {
    return !before_.empty() && source_.type(at_ + 1) == '(' &&
           source_.partner(at_ + 1) == close - 1 && name_.name_last == at_ &&
           name_.qualifier_last == name_.first;
  }

  void around_list(std::uint32_t close) {
    name_ = before_;
    result_.parameters = at_ + 1;
    at_ = close + 1;
    take_name();
    result_.function = true;
    result_.trailing = at_;
    behind_parameters();
  }

  bool is_macro_call(bool typed, std::uint32_t behind) const {
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
  bool is_initialiser(std::uint32_t close) const {
    if (place_.in_class || place_.with_body || place_.parameter || at_ + 1 == close)
      return false;
    std::uint8_t const first = source_.type(at_ + 1);
    if (first == token_number || first == token_string || first == token_character ||
        first == '-' || first == '&' || first == '*' || first == '!' || first == '{' ||
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

  void accept(std::uint32_t close, bool constructor) {
    result_.constructor = constructor && name_.kind == gChain::plain;
    result_.function = true;
    result_.parameters = at_;
    take_name();
    at_ = close + 1;
    result_.trailing = at_;
    behind_parameters();
  }

  void take_name() {
    result_.name = name_;
    result_.type_last = name_.first;
  }

  // To the "," of the next declarator.
  void behind_parameters() {
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

  // Variables.

  void value() {
    skip_value();
    variable(at_);
  }

  void skip_value() {
    result_.value_first = at_;
    at_ = next_comma(at_);
    result_.value_last = at_;
  }

  std::uint32_t next_comma(std::uint32_t at) const {
    while (at < last_ && type(at) != ',') {
      bool const jump = is_opener(at) || (type(at) == '<' && source_.partner(at) != no_token);
      at = jump ? source_.behind(at) : at + 1;
    }
    return at;
  }

  void variable(std::uint32_t end_at) {
    // "int x ATTRIBUTE": the name stands in front of the macro.
    if (is_macro_behind_name())
      name_ = before_;
    bool const unnamed = place_.parameter && types_ == 0 && before_.empty() && !macros_;
    if (!unnamed)
      take_name();
    end(end_at);
  }

  bool is_macro_behind_name() const {
    if (before_.empty() || name_.empty() || before_.last != name_.first || types_ < 2 ||
        name_.name_last - name_.first != 1)
      return false;
    return source_.is_known_attribute(name_.name_first) ||
           (source_.is_capital(name_.name_first) && !source_.is_capital(before_.name_first) &&
            source_.sense(name_.name_first) != gMacroSense::type);
  }

  void end(std::uint32_t at) {
    result_.last = at;
    at_ = at;
    done_ = true;
  }
};

} // namespace

gDeclarator read_declarator(gSource const & source, std::uint32_t first, std::uint32_t last,
                            gDeclaratorPlace const & place) {
  return DeclaratorReader(source, first, last, place).run();
}

} // namespace Decl
