// The scanner. What it can't know for sure it decides so that a mistake costs a line at most: a
// string without its quote ends with its line, and an inner brace nests only where a closing brace
// would else be left over in the code.
#include "ana/decl/pas_tokens.h"

#include <algorithm>
#include <array>

namespace Decl {

namespace {

enum Class : std::uint8_t { other, blank, line, letter, digit };

constexpr std::array<std::uint8_t, 256> make_classes() {
  std::array<std::uint8_t, 256> classes{};
  for (unsigned c = 0; c < 256; ++c) {
    if (c == '\n')
      classes[c] = line;
    else if (c <= ' ')
      classes[c] = blank;
    else if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c >= 0x80)
      classes[c] = letter;
    else if (c >= '0' && c <= '9')
      classes[c] = digit;
  }
  return classes;
}

constexpr std::array<std::uint8_t, 256> classes = make_classes();

Class class_of(char c) {
  return static_cast<Class>(classes[static_cast<unsigned char>(c)]);
}

bool is_name(char c) {
  return class_of(c) >= letter;
}

bool is_hex(char c) {
  return class_of(c) == digit || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

std::uint32_t offset(std::size_t at, std::uint32_t none) {
  return at == std::string_view::npos ? none : static_cast<std::uint32_t>(at);
}

} // namespace

gPasScanner::gPasScanner(std::string_view text)
    : text_(text),
      size_(static_cast<std::uint32_t>(text.size())) {
  if (text.starts_with("\xEF\xBB\xBF"))
    at_ = 3;
}

bool gPasScanner::finish(gPasLexeme & lexeme, std::uint32_t begin, char sign) {
  lexeme.kind = gPasLexeme::token;
  lexeme.token_made = gPasToken();
  lexeme.token_made.begin = begin;
  lexeme.token_made.end = at_;
  lexeme.token_made.sign = sign;
  lexeme.token_made.line_start = !token_on_line_;
  if (sign == pas_word_sign && last_sign_ != '.')
    lexeme.token_made.word = pas_word(text_.substr(begin, at_ - begin));
  token_on_line_ = true;
  // Behind "end." no member follows, though a branch may.
  last_sign_ = sign == '.' && last_end_ ? ';' : sign;
  last_end_ = lexeme.token_made.word == gPasWord::end;
  return true;
}

std::uint32_t gPasScanner::end_of_word(std::uint32_t at) const {
  while (at < size_ && is_name(text_[at]))
    ++at;
  return at;
}

bool gPasScanner::next(bool in_assembler, gPasLexeme & lexeme) {
  if (in_assembler)
    return assembler(lexeme);
  for (; at_ < size_; ++at_) {
    char const c = text_[at_];
    switch (class_of(c)) {
    case blank:
      continue;
    case line:
      token_on_line_ = comment_on_line_ = false;
      continue;
    case letter: {
      std::uint32_t const begin = at_;
      at_ = end_of_word(at_);
      return finish(lexeme, begin, pas_word_sign);
    }
    case digit: {
      std::uint32_t const begin = at_;
      at_ = end_of_number(at_);
      return finish(lexeme, begin, pas_number);
    }
    case other:
      if (comment_or_directive(lexeme, at_) || sign_token(lexeme))
        return true;
    }
  }
  return false;
}

bool gPasScanner::sign_token(gPasLexeme & lexeme) {
  std::uint32_t const begin = at_;
  char const c = text_[at_];
  char const behind = peek(1);
  if (c == '\'') {
    at_ = end_of_text(at_);
    return finish(lexeme, begin, pas_text);
  }
  if (c == '&' && class_of(behind) == letter) {
    // The word behind it is a name, whatever it spells.
    at_ = end_of_word(at_ + 1);
    finish(lexeme, begin + 1, pas_word_sign);
    lexeme.token_made.word = gPasWord::none;
    return true;
  }
  bool const based = c == '#' || c == '$' || c == '%' || c == '&';
  if (based && (is_hex(behind) || (c == '#' && (behind == '$' || behind == '%')))) {
    at_ = end_of_number(at_ + 1);
    return finish(lexeme, begin, pas_number);
  }
  bool const operand = last_sign_ == pas_word_sign || last_sign_ == ')' || last_sign_ == ']' ||
                       last_sign_ == '^' || last_sign_ == ':';
  if (c == '^' && (behind == '[' || behind == ']' || behind == '\\' || behind == '@') && !operand) {
    at_ += 2;
    return finish(lexeme, begin, pas_number);
  }
  char sign = c;
  if (c == ':' && behind == '=')
    sign = pas_assign;
  else if (c == '.' && behind == '.')
    sign = pas_dots;
  at_ += sign == c ? 1 : 2;
  // Letters and digits name kinds of tokens; no stray byte may pass for one.
  return finish(lexeme, begin, sign);
}

std::uint32_t gPasScanner::end_of_number(std::uint32_t at) const {
  for (; at < size_; ++at) {
    char const c = text_[at];
    if (is_name(c) || c == '$' || c == '#')
      continue;
    bool const fraction = c == '.' && at + 1 < size_ && class_of(text_[at + 1]) == digit;
    bool const exponent = (c == '+' || c == '-') && (text_[at - 1] | 0x20) == 'e' &&
                          at + 1 < size_ && class_of(text_[at + 1]) == digit &&
                          class_of(text_[at - 2]) == digit && text_[at_] != '$';
    if (!fraction && !exponent)
      break;
  }
  return at;
}

// "at" is the opening quote.
std::uint32_t gPasScanner::end_of_text(std::uint32_t at) {
  if (std::uint32_t const end = end_of_block_text(at))
    return end;
  for (++at; at < size_ && text_[at] != '\n'; ++at) {
    if (text_[at] != '\'')
      continue;
    if (at + 1 >= size_ || text_[at + 1] != '\'')
      return at + 1;
    ++at;
  }
  return text_[at - 1] == '\r' ? at - 1 : at;
}

// A text over several lines stands between rows of three quotes, or five and so on, each at an end
// of a line. 0 where none begins here.
std::uint32_t gPasScanner::end_of_block_text(std::uint32_t at) {
  std::uint32_t quotes = 0;
  while (at + quotes < size_ && text_[at + quotes] == '\'')
    ++quotes;
  std::uint32_t behind = at + quotes;
  while (behind < size_ && class_of(text_[behind]) == blank)
    ++behind;
  bool const opens = quotes >= 3 && quotes % 2 == 1 && behind < size_ && text_[behind] == '\n';
  std::uint32_t const bit = 1u << std::min(quotes, 31u);
  if (!opens || (no_block_ & bit) != 0)
    return 0;
  for (std::uint32_t line_end = behind; line_end < size_;) {
    std::uint32_t head = line_end + 1;
    while (head < size_ && class_of(text_[head]) == blank)
      ++head;
    std::uint32_t row = head;
    while (row < size_ && text_[row] == '\'')
      ++row;
    if (row - head == quotes)
      return row;
    line_end = offset(text_.find('\n', row), size_);
  }
  no_block_ |= bit;
  return 0;
}

// Comments

bool gPasScanner::comment_or_directive(gPasLexeme & lexeme, std::uint32_t from) {
  char const c = text_[from];
  char const behind = peek(1);
  bool const braces = c == '{' || (c == '(' && behind == '*');
  if (!braces && !(c == '/' && behind == '/'))
    return false;
  std::uint32_t const inner = from + (c == '{' ? 1 : 2);
  bool const directive = braces && inner < size_ && text_[inner] == '$';
  lexeme.kind = directive ? gPasLexeme::directive : gPasLexeme::comment;
  lexeme.begin = from;
  lexeme.line_start = !token_on_line_ && !comment_on_line_;
  if (!braces) {
    at_ = offset(text_.find('\n', from), size_);
    lexeme.end = at_ > from && text_[at_ - 1] == '\r' ? at_ - 1 : at_;
  } else {
    lexeme.end = at_ = end_of_comment(from);
    if (text_.substr(from, at_ - from).find('\n') != text_.npos)
      token_on_line_ = false;
  }
  comment_on_line_ = true;
  return true;
}

// Comments nest in one dialect and don't in the other, and few sources say which one they are. They
// nest here if the closer that belongs to the first one would else stand alone in the code.
std::uint32_t gPasScanner::end_of_comment(std::uint32_t from) {
  bool const brace = text_[from] == '{';
  std::string_view const closer = brace ? "}" : "*)";
  std::string_view const opener = brace ? "{" : "(*";
  std::uint32_t const inner = from + static_cast<std::uint32_t>(opener.size());
  auto const length = static_cast<std::uint32_t>(closer.size());
  std::uint32_t const first = offset(text_.find(closer, inner), size_);
  std::uint32_t const simple = std::min(first + length, size_);
  if (first == size_ || !may_nest_ || text_.substr(inner, first - inner).find(opener) == text_.npos)
    return simple;
  std::uint32_t const nested = end_of_braces(from);
  if (nested == 0)
    may_nest_ = false;
  return nested == 0 ? simple : nested;
}

// Behind the closer that makes the pairs even; 0 if none does.
std::uint32_t gPasScanner::end_of_braces(std::uint32_t from) const {
  bool const brace = text_[from] == '{';
  std::uint32_t depth = 0;
  for (std::uint32_t at = from; at < size_;) {
    at = offset(brace ? text_.find_first_of("{}", at) : text_.find('*', at), size_);
    if (at == size_)
      return 0;
    bool const opens = brace ? text_[at] == '{' : at > 0 && text_[at - 1] == '(';
    bool const closes = brace ? text_[at] == '}' : at + 1 < size_ && text_[at + 1] == ')';
    at += closes && !brace ? 2 : 1;
    if (opens)
      ++depth;
    else if (closes && --depth == 0)
      return at;
  }
  return 0;
}

// Assembler: nothing counts but comments, directives and the word "end".
bool gPasScanner::assembler(gPasLexeme & lexeme) {
  while (at_ < size_) {
    char const c = text_[at_];
    if (c == '\n')
      token_on_line_ = comment_on_line_ = false;
    if (comment_or_directive(lexeme, at_))
      return true;
    if (c == '\'' || c == '"') {
      std::uint32_t const quote =
          offset(text_.find_first_of(c == '"' ? "\"\n" : "'\n", at_ + 1), size_);
      at_ = quote < size_ && text_[quote] == c ? quote + 1 : at_ + 1;
      token_on_line_ = true;
      continue;
    }
    std::uint32_t const begin = at_;
    while (at_ < size_ && (is_name(text_[at_]) || text_[at_] == '@' || text_[at_] == '.' ||
                           text_[at_] == '$' || text_[at_] == '&'))
      ++at_;
    if (same_word(text_.substr(begin, at_ - begin), "end") && peek(0) != ':')
      return finish(lexeme, begin, pas_word_sign);
    if (at_ > begin && same_word(text_.substr(begin, at_ - begin), "end.")) {
      at_ = begin + 3;
      return finish(lexeme, begin, pas_word_sign);
    }
    token_on_line_ = token_on_line_ || class_of(c) > line || class_of(c) == other;
    at_ += at_ == begin;
  }
  return false;
}

} // namespace Decl
