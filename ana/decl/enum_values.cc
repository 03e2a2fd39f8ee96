// Numbers are counted as a compiler does it: one more than the value in front, or what a constant
// expression of literals and earlier values gives. Anything else, and what stands in a branch of
// the preprocessor, makes all numbers unsure up to the next plain one.

#include "ana/decl/enum_values.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <unordered_map>

#include "vlb/gstring.h"

namespace {

using namespace Decl;

using gNumber = std::optional<std::int64_t>;
using gKnown = std::unordered_map<std::string, std::int64_t>;

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();

int digit_of(char c) {
  return Vlb::is_digit(c) ? c - '0' : Vlb::is_letter(c) ? Vlb::lower(c) - 'a' + 10 : 99;
}

// Operators by their binding, the loosest first.
struct Operator {
  std::string_view sign;
  int binding;
  char code;
};
constexpr Operator cpp_operators[] = {{"<<", 4, 'l'}, {">>", 4, 'r'}, {"|", 1, '|'}, {"^", 2, '^'},
                                      {"&", 3, '&'},  {"+", 5, '+'},  {"-", 5, '-'}, {"*", 6, '*'}};
constexpr Operator pas_operators[] = {{"shl", 6, 'l'}, {"shr", 6, 'r'}, {"or", 5, '|'},
                                      {"and", 6, '&'}, {"+", 5, '+'},   {"-", 5, '-'},
                                      {"*", 6, '*'}};

// One expression; any fault ends in no number.
class Expression {
public:
  Expression(std::string_view text, gKnown const & known, bool pascal)
      : text_(text),
        known_(known),
        pascal_(pascal) {}

  gNumber value() {
    gNumber const result = operation(0);
    skip();
    return at_ == text_.size() ? result : gNumber();
  }

private:
  void skip() {
    while (at_ < text_.size() && Vlb::is_space(text_[at_]))
      ++at_;
  }
  bool take(char c) {
    skip();
    bool const is = at_ < text_.size() && text_[at_] == c;
    at_ += is;
    return is;
  }
  Operator const * next_operator(int binding) {
    skip();
    std::string const rest = Vlb::to_lower(text_.substr(at_, 4));
    auto const fits = [&](Operator const & one) { return rest.starts_with(one.sign); };
    auto const find = [&](auto const & table) -> Operator const * {
      for (Operator const & one : table)
        if (fits(one))
          return one.binding > binding ? &one : nullptr;
      return nullptr;
    };
    return pascal_ ? find(pas_operators) : find(cpp_operators);
  }
  gNumber operation(int binding) {
    constexpr int deepest = 50;
    if (++depth_ > deepest)
      return {};
    gNumber left = operand();
    while (Operator const * const one = left ? next_operator(binding) : nullptr) {
      at_ += one->sign.size();
      gNumber const right = operation(one->binding);
      left = right ? apply(one->code, *left, *right) : gNumber();
    }
    --depth_;
    return left;
  }
  // What may overflow isn't sure.
  static gNumber apply(char code, std::int64_t a, std::int64_t b) {
    constexpr std::int64_t small = std::int64_t(1) << 31;
    bool const moderate = a > -small && a < small && b > -small && b < small;
    bool const shift = a >= 0 && b >= 0 && b < 63;
    switch (code) {
    case '|':
      return a | b;
    case '^':
      return a ^ b;
    case '&':
      return a & b;
    case 'l':
      return shift && a <= (largest >> b) ? gNumber(a << b) : gNumber();
    case 'r':
      return shift ? gNumber(a >> b) : gNumber();
    default:
      break;
    }
    if (!moderate)
      return {};
    return code == '+' ? a + b : code == '-' ? a - b : a * b;
  }
  gNumber operand() {
    skip();
    if (take('(')) {
      gNumber const inner = operation(0);
      return take(')') ? inner : gNumber();
    }
    if (take('-')) {
      gNumber const inner = sign_operand();
      return inner ? gNumber(-*inner) : inner;
    }
    if (take('+'))
      return sign_operand();
    if (at_ < text_.size() && (Vlb::is_digit(text_[at_]) || (pascal_ && text_[at_] == '$')))
      return number();
    if (at_ + 2 < text_.size() && text_[at_] == '\'' && text_[at_ + 1] != '\\' &&
        text_[at_ + 2] == '\'' && !pascal_) {
      at_ += 3;
      return static_cast<unsigned char>(text_[at_ - 2]) < 0x80 ? gNumber(text_[at_ - 2])
                                                               : gNumber();
    }
    return name();
  }
  gNumber sign_operand() {
    constexpr int deepest = 50;
    if (++depth_ > deepest)
      return {};
    gNumber const inner = operand();
    --depth_;
    return inner;
  }
  gNumber name() {
    std::size_t const begin = at_;
    while (at_ < text_.size() && Vlb::is_word(text_[at_]))
      ++at_;
    std::string const word(text_.substr(begin, at_ - begin));
    auto const found = known_.find(pascal_ ? Vlb::to_lower(word) : word);
    return found == known_.end() ? gNumber() : found->second;
  }
  gNumber number() {
    int base = 10;
    auto const prefix = [&](std::string_view sign, int of) {
      if (Vlb::to_lower(text_.substr(at_, sign.size())) != sign)
        return;
      base = of;
      at_ += sign.size();
    };
    if (pascal_) {
      prefix("$", 16);
    } else if (text_.substr(at_).size() > 1 && text_[at_] == '0') {
      prefix("0x", 16);
      if (base == 10)
        prefix("0b", 2);
      if (base == 10 && Vlb::is_digit(text_[at_ + 1]))
        base = 8;
    }
    std::int64_t result = 0;
    std::size_t const begin = at_;
    for (; at_ < text_.size(); ++at_) {
      if (text_[at_] == '\'' && !pascal_)
        continue;
      int const digit = digit_of(text_[at_]);
      if (digit >= base)
        break;
      if (result > (largest - digit) / base)
        return {};
      result = result * base + digit;
    }
    if (at_ == begin)
      return {};
    while (!pascal_ && at_ < text_.size() &&
           (digit_of(text_[at_]) == 30 || digit_of(text_[at_]) == 21))
      ++at_; // "u" and "l"
    return result;
  }

  std::string_view text_;
  gKnown const & known_;
  bool pascal_;
  std::size_t at_ = 0;
  int depth_ = 0;
};

} // namespace

std::vector<gEnumValue> Decl::enum_values(std::string_view text, gFileDeclarations const & file,
                                          std::size_t enumeration, gSyntax syntax) {
  constexpr std::uint32_t longest = 400; // of what is written; more is no constant of a user
  bool const pascal = syntax == gSyntax::pascal;
  std::vector<gEnumValue> values;
  gKnown known;
  gNumber last = -1;
  for (std::size_t i = enumeration + 1; i < file.items.size(); ++i) {
    gDeclaration const & one = file.items[i];
    if (one.kind != gKind::enumerator || one.scope != static_cast<std::int32_t>(enumeration))
      break;
    gEnumValue value{shown_name(text, file, one, syntax), {}, {}};
    bool const sure = one.condition == file.items[enumeration].condition;
    bool const is_long = one.initialiser.end - one.initialiser.begin > longest;
    if (one.initialiser.empty())
      last = last && *last < largest ? gNumber(*last + 1) : gNumber();
    else
      value.written = is_long ? "..." : one_line(text, one.initialiser, syntax);
    if (!one.initialiser.empty())
      last = Expression(value.written, known, pascal).value();
    if (!sure)
      last.reset();
    if (last) {
      value.number = std::to_string(*last);
      known.emplace(pascal ? Vlb::to_lower(value.name) : value.name, *last);
    }
    values.push_back(std::move(value));
  }
  return values;
}
