// A walk over the tokens of one scope that jumps over brackets. It needs to know little: whether
// there was a "=", a parameter list, the word of a class; that tells what a "{" opens.
#include "ana/decl/cpp_extents.h"

#include "ana/decl/cpp_names.h"

namespace Decl {

namespace {

constexpr std::uint32_t longest_tail = 1024;      // behind a class, in tokens
constexpr std::uint32_t most_old_parameters = 64; // of a definition in the style before 1989

class Cutter {
public:
  Cutter(gSource const & source, std::uint32_t first, std::uint32_t end, gPlace const & place)
      : source_(source),
        end_(end),
        place_(place),
        at_(first) {
    extent_.first = first;
  }

  gExtent run() {
    while (at_ < end_ && !done_) {
      if (at_ > extent_.first && source_[at_].line_head && breaks_here())
        return ended(gExtent::plain, at_, at_);
      token();
    }
    if (!done_)
      return ended(gExtent::plain, end_, end_);
    return extent_;
  }

private:
  gSource const & source_;
  std::uint32_t const end_;
  gPlace const & place_;
  std::uint32_t at_;
  gExtent extent_;
  bool done_ = false;
  bool equals_ = false, initialisers_ = false;
  bool constrained_ = false; // "requires" stood behind the template head
  std::uint32_t key_ = no_token;
  std::uint32_t group_ = no_token; // the last one that may hold parameters
  std::vector<std::uint32_t> angles_;

  std::uint8_t type(std::uint32_t at) const { return source_.type(at); }

  gExtent & ended(gExtent::Shape shape, std::uint32_t head_end, std::uint32_t last) {
    extent_.shape = shape;
    if (!initialisers_)
      extent_.head_end = head_end;
    extent_.last = std::max(last, extent_.first + 1);
    extent_.key = key_;
    done_ = true;
    return extent_;
  }

  void token() {
    switch (type(at_)) {
    case ';':
      semicolon();
      return;
    case '(':
      round();
      return;
    case '[':
      at_ = source_.behind(at_);
      return;
    case '{':
      brace();
      return;
    case '}':
      ended(gExtent::plain, at_, at_ == extent_.first ? at_ + 1 : at_);
      return;
    case '=':
      equals_ = equals_ || angles_.empty();
      break;
    case '<':
      if (!equals_ && at_ > extent_.first &&
          (source_.is_name(at_ - 1) || source_.is_word(at_ - 1, gWord::template_)))
        angles_.push_back(at_);
      break;
    case '>':
      close_angle();
      break;
    case ':':
      colon();
      break;
    case token_word:
      word();
      return;
    default:
      break;
    }
    ++at_;
  }

  void close_angle() {
    if (angles_.empty())
      return;
    source_.tokens[angles_.back()].link = at_;
    source_.tokens[at_].link = angles_.back();
    angles_.pop_back();
  }

  void colon() {
    if (is_base_clause()) {
      key_ = at_ - 2;
      group_ = no_token;
      return;
    }
    if (group_ == no_token || key_ != no_token || equals_ || !angles_.empty() || initialisers_)
      return;
    initialisers_ = true;
    extent_.head_end = at_;
  }

  // "INTERFACE(x) A : public B {", where a macro stands for the word of a class.
  bool is_base_clause() const {
    gWord const next = source_.word(at_ + 1);
    return key_ == no_token && !equals_ && !initialisers_ && angles_.empty() &&
           at_ >= extent_.first + 2 && source_.is_name(at_ - 1) &&
           (type(at_ - 2) == ')' || source_.is_name(at_ - 2)) &&
           (next == gWord::public_ || next == gWord::protected_ || next == gWord::private_) &&
           type(at_ + 2) == token_word;
  }

  void word() {
    gWord const word = source_.word(at_);
    if (word == gWord::operator_) {
      at_ = behind_operator(source_, at_);
      if (!equals_ && type(at_) == '<' && type(at_ - 1) != token_word)
        angles_.push_back(at_++); // "operator==<T>(...)"
      return;
    }
    if (word == gWord::requires_ && group_ == no_token && key_ == no_token)
      constrained_ = true;
    bool const head = is_class_key(word) || word == gWord::namespace_;
    if (head && angles_.empty() && !equals_ && key_ == no_token &&
        (group_ == no_token || constrained_ || is_macro_group())) {
      key_ = at_;
      group_ = no_token;
    }
    ++at_;
  }

  // "MACRO(x) class A {"
  bool is_macro_group() const {
    return group_ == extent_.first + 1 &&
           (source_.is_capital(extent_.first) || source_.is_known_attribute(extent_.first));
  }

  void round() {
    gWord const before = at_ > extent_.first ? source_.word(at_ - 1) : gWord::name;
    bool const of_word = before == gWord::attribute || before == gWord::type_call ||
                         before == gWord::noexcept_ || before == gWord::explicit_ ||
                         before == gWord::throw_ || before == gWord::requires_ ||
                         before == gWord::asm_ || before == gWord::static_assert_;
    if (!of_word && angles_.empty() && !equals_ && !initialisers_)
      group_ = at_;
    at_ = source_.behind(at_);
  }

  // Braces.

  void brace() {
    std::uint32_t const behind = source_.behind(at_);
    if (behind == at_ + 1 && source_.partner(at_) == no_token) {
      ++at_;
      return;
    }
    if (equals_ || belongs_to_expression(behind)) {
      at_ = behind;
      return;
    }
    extent_.open = at_;
    extent_.tail = behind;
    if (initialisers_)
      initialiser_or_body(behind);
    else if (key_ != no_token && opens_contents())
      contents(behind);
    else if (at_ > extent_.first && (source_.is_word(at_ - 1, gWord::export_) ||
                                     (type(at_ - 1) == token_string && at_ - 1 > extent_.first &&
                                      source_.is_word(at_ - 2, gWord::extern_))))
      ended(gExtent::block, at_, behind);
    else if (group_ != no_token)
      body(behind);
    else
      braced_value(behind);
  }

  bool belongs_to_expression(std::uint32_t behind) {
    if (at_ == extent_.first)
      return false;
    if (source_.is_word(at_ - 1, gWord::requires_))
      return true;
    std::uint32_t const link = source_.partner(at_ - 1);
    if (type(at_ - 1) == ')' && link != no_token && link > extent_.first &&
        source_.is_word(link - 1, gWord::requires_) && !is_clause(link - 1))
      return true;
    if (angles_.empty())
      return false;
    if (behind < end_ && (type(behind) == '>' || type(behind) == ',' || type(behind) == ')' ||
                          type(behind) == token_both))
      return true;
    angles_.clear(); // they were comparisons
    return false;
  }

  // "f() requires (a) {" against "requires requires(T t) {".
  bool is_clause(std::uint32_t requires_at) const {
    std::uint8_t const before = type(requires_at - 1);
    return group_ != no_token &&
           (before == ')' || before == '&' ||
            (before == token_word && is_trailing(source_.word(requires_at - 1)) &&
             !source_.is_word(requires_at - 1, gWord::requires_)));
  }

  // A class may hold the call of a macro in its head, a function may return "struct X".
  bool opens_contents() const {
    if (group_ == no_token || source_.word(key_) == gWord::namespace_)
      return true;
    std::uint32_t const callee = group_ - 1;
    std::uint32_t const behind = source_.behind(group_);
    if (behind < at_ && (type(behind) == ':' || source_.word(behind) == gWord::name) &&
        source_.is_name(behind) == (type(behind) != ':') && !source_.is_capital(behind))
      return true; // "class A B(x) C : D {"
    std::uint32_t names = 0;
    for (std::uint32_t at = key_ + 1; at < callee; ++at)
      names += source_.is_name(at) ? 1 : 0;
    if (names == 0)
      return type(callee) == token_word;
    return source_.is_name(callee) &&
           (source_.is_capital(callee) || source_.sense(callee) == gMacroSense::attribute);
  }

  void contents(std::uint32_t behind) {
    std::uint32_t last = behind;
    if (source_.word(key_) != gWord::namespace_)
      last = behind_tail(behind);
    ended(gExtent::contents, at_, last);
  }

  // Behind the declarators that follow a class and their ";"; where they end in anything else,
  // directly behind the class.
  std::uint32_t behind_tail(std::uint32_t at) const {
    std::uint32_t const begin = at;
    if (begins_declaration(source_.word(at)))
      return begin;
    for (std::uint32_t steps = 0; at < end_ && steps < longest_tail;
         ++steps, at = is_opener(at) ? source_.behind(at) : at + 1) {
      if (type(at) == ';')
        return at + 1;
      gWord const word = source_.word(at);
      bool const fresh = source_[at].line_head && begins_declaration(word);
      if (type(at) == '}' || (fresh && source_[at - 1].type != ','))
        return begin;
    }
    return begin;
  }

  bool is_opener(std::uint32_t at) const {
    return type(at) == '(' || type(at) == '[' || type(at) == '{';
  }

  void initialiser_or_body(std::uint32_t behind) {
    bool const initialiser = source_.is_name(at_ - 1) || type(at_ - 1) == '>';
    if (initialiser)
      at_ = behind;
    else
      body(behind);
  }

  void body(std::uint32_t behind) {
    std::uint32_t const head_end = at_;
    while (behind + 1 < end_ && source_.is_word(behind, gWord::catch_) && type(behind + 1) == '(') {
      std::uint32_t const handler = source_.behind(behind + 1);
      if (handler >= end_ || type(handler) != '{')
        break;
      behind = source_.behind(handler);
    }
    ended(gExtent::function, head_end, behind);
  }

  void braced_value(std::uint32_t behind) {
    if (behind < end_ && (type(behind) == ';' || type(behind) == ',' || type(behind) == '=')) {
      at_ = behind;
      extent_.open = no_token;
    } else
      ended(gExtent::other, at_, behind);
  }

  // The end by ";".

  void semicolon() {
    std::uint32_t body_at = no_token;
    if (place_.file_level && group_ != no_token && !equals_ && !initialisers_)
      body_at = old_style_body();
    if (body_at == no_token) {
      ended(gExtent::plain, at_, at_ + 1);
      return;
    }
    extent_.open = body_at;
    ended(gExtent::function, source_.behind(group_), source_.behind(body_at));
    extent_.tail = extent_.last;
  }

  // "int f(a, b) int a; char * b; {": the "{" of the body.
  std::uint32_t old_style_body() const {
    std::uint32_t const close = source_.partner(group_);
    if (close == no_token || close > at_ || close == group_ + 1 || close + 1 == at_ ||
        close - group_ > 2 * most_old_parameters || type(close + 1) != token_word)
      return no_token;
    for (std::uint32_t at = group_ + 1; at < close; ++at)
      if ((at - group_) % 2 == 1 ? !source_.is_name(at) : type(at) != ',')
        return no_token;
    std::uint32_t const most = (close - group_) / 2;
    std::uint32_t declarations = 0;
    for (std::uint32_t at = at_, steps = 0; at < end_ && steps < 16 * (most + 1); ++steps) {
      if (type(at) == ';' && ++declarations > most)
        return no_token;
      if (type(at) == '{')
        return type(at - 1) == ';' ? at : no_token;
      if (type(at) == '}' || type(at) == '=')
        return no_token;
      at = type(at) == '(' || type(at) == '[' ? source_.behind(at) : at + 1;
    }
    return no_token;
  }

  // Ends without ";".

  bool breaks_here() const {
    std::uint8_t const kind = type(at_);
    if (kind != token_word && kind != '~' && kind != '[')
      return false;
    if (kind == token_word && begins_section())
      return true;
    if (is_call_so_far())
      return begins_behind_call();
    gWord const word = source_.word(at_);
    if (extent_.first + 1 == at_ && source_.is_name(extent_.first))
      return begins_behind_word(word);
    return kind == token_word && lacks_semicolon(word);
  }

  bool begins_section() const {
    gWord const word = source_.word(at_);
    if (word < gWord::public_ || word > gWord::signals || at_ + 1 >= end_)
      return false;
    return type(at_ + 1) == ':' || source_.is_word(at_ + 1, gWord::slots);
  }

  bool is_call_so_far() const {
    std::uint32_t const first = extent_.first;
    return source_.is_name(first) && type(first + 1) == '(' && source_.behind(first + 1) == at_ &&
           source_.spelling(first) != place_.class_name;
  }

  // Of "MACRO" on a line of its own.
  bool begins_behind_word(gWord next) const {
    std::uint32_t const first = extent_.first;
    if (next == gWord::namespace_ || next == gWord::using_ || next == gWord::typedef_ ||
        next == gWord::friend_ || next == gWord::qt_property || next == gWord::qt_statement)
      return true;
    if (!source_.is_capital(first) || !source_[first].line_head)
      return false;
    gMacroSense const sense = source_.sense(first);
    if (sense == gMacroSense::opens || sense == gMacroSense::closes ||
        sense == gMacroSense::declaration)
      return true;
    bool const call = source_.is_name(at_) && type(at_ + 1) == '(';
    if (call && source_.is_capital(at_))
      return true;
    std::string_view const text = source_.spelling(first);
    return text.find("NAMESPACE") != text.npos || text.find("BEGIN") != text.npos ||
           text.find("_END") != text.npos || text.find("END_") != text.npos;
  }

  // Of "MACRO(x)" on lines of its own: whether what follows has nothing to do with it.
  bool begins_behind_call() const {
    std::uint32_t const first = extent_.first;
    gWord const next = source_.word(at_);
    if (next == gWord::namespace_ || next == gWord::using_)
      return true;
    gMacroSense const sense = source_.sense(first);
    if (sense == gMacroSense::type || sense == gMacroSense::attribute)
      return false;
    if (sense != gMacroSense::unknown && sense != gMacroSense::mixed &&
        sense != gMacroSense::nothing)
      return true;
    if (is_attribute_shape(source_.spelling(first)))
      return false;
    if (type(at_) == '~' || begins_declaration(source_.word(at_)))
      return true;
    bool const call = at_ + 1 < end_ && type(at_ + 1) == '(';
    if (call && source_.is_name(at_))
      return place_.in_class || (source_.is_capital(at_) && source_.is_capital(first));
    return source_.is_capital(first) || place_.in_class;
  }

  bool lacks_semicolon(gWord word) const {
    std::uint32_t const first = extent_.first;
    bool const sure = word == gWord::namespace_ || word == gWord::typedef_ ||
                      word == gWord::using_ || word == gWord::template_ || word == gWord::static_ ||
                      word == gWord::virtual_ || word == gWord::extern_ || word == gWord::friend_ ||
                      word == gWord::class_ || word == gWord::struct_ || word == gWord::enum_;
    if (!sure || !source_[first].line_head || type(first) == '[' || initialisers_)
      return false;
    gWord const begin = source_.word(first);
    if (begin == gWord::attribute || begin == gWord::template_ || begin == gWord::export_ ||
        begin == gWord::friend_)
      return false;
    gWord const before = source_.word(at_ - 1);
    std::uint8_t const kind = type(at_ - 1);
    bool const whole =
        kind == ')' || kind == ']' || kind == token_number || kind == token_string ||
        (kind == token_word &&
         (source_.is_name(at_ - 1) || before == gWord::const_ || before == gWord::noexcept_));
    return whole &&
           source_.lines.column(source_[at_].begin) <= source_.lines.column(source_[first].begin) &&
           source_.lines.line(source_[at_].begin) > source_.lines.line(source_[first].begin);
  }
};

} // namespace

gExtent cut_extent(gSource const & source, std::uint32_t first, std::uint32_t end,
                   gPlace const & place) {
  return Cutter(source, first, end, place).run();
}

} // namespace Decl
