// One walk over the bytes. Directives are lines of their own: their tokens don't reach the reader
// of declarations, but their comments are as good as any others.
#include "ana/decl/cpp_tokens.h"

#include "ana/decl/cpp_directives.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace Decl {

namespace {

enum Class : std::uint8_t { junk, blank, line_feed, letter, digit, quote, sign };

constexpr std::size_t longest_delimiter = 18; // of a raw string, with its quote and "("
constexpr int most_failures = 16;
constexpr std::size_t most_open_comments = 1000; // that are reported

constexpr std::array<std::uint8_t, 256> make_classes() {
  std::array<std::uint8_t, 256> classes{};
  for (int c = 0; c < 256; ++c) {
    bool const is_letter =
        (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '$' || c >= 0x80;
    classes[c] = is_letter                         ? letter
                 : c >= '0' && c <= '9'            ? digit
                 : c == '\n'                       ? line_feed
                 : c == ' ' || (c >= 9 && c <= 13) ? blank
                 : c == '"' || c == '\''           ? quote
                 : c > ' ' && c < 0x7f && c != '`' ? sign
                                                   : junk;
  }
  return classes;
}

constexpr std::array<std::uint8_t, 256> classes = make_classes();

std::uint8_t class_of(char c) {
  return classes[static_cast<unsigned char>(c)];
}

class Lexer {
public:
  explicit Lexer(std::string_view text)
      : text_(text),
        size_(static_cast<std::uint32_t>(text.size())) {
    out_.tokens.reserve(text.size() / 6 + 16);
  }

  gTokens made() {
    if (text_.starts_with("\xef\xbb\xbf"))
      at_ = 3;
    while (blanks(), at_ < size_) {
      if (text_[at_] == '#' && line_head_)
        directive();
      else
        token(out_.tokens);
    }
    gToken end;
    end.begin = end.end = size_;
    end.line_head = true;
    out_.tokens.push_back(end);
    return std::move(out_);
  }

private:
  std::string_view text_;
  std::uint32_t size_;
  std::uint32_t at_ = 0;
  std::uint32_t line_ = 1, line_begin_ = 0;
  bool line_head_ = true;
  bool only_blanks_ = true; // neither token nor comment on this line so far
  gTokens out_;
  std::vector<gToken> of_directive_;
  std::size_t closer_ = 0; // the next "*/", where it is known
  // Searches that failed, so that many bad quotes don't cost the rest of the text each.
  int open_raw_strings_ = 0, open_quotes_ = 0;
  std::uint32_t open_quotes_line_ = 0;

  char peek(std::uint32_t ahead) const { return at_ + ahead < size_ ? text_[at_ + ahead] : '\0'; }

  void feed() { // at a line feed
    ++at_;
    ++line_;
    line_begin_ = at_;
    line_head_ = only_blanks_ = true;
  }

  // Blanks and comments; stops at a line feed within a directive.
  void blanks(bool in_directive = false) {
    while (at_ < size_) {
      char const c = text_[at_];
      if (c == '\n') {
        if (in_directive)
          return;
        feed();
      } else if (class_of(c) == blank)
        ++at_;
      else if (c == '/' && (peek(1) == '/' || peek(1) == '*'))
        comment();
      else if (c == '\\' && (peek(1) == '\n' || (peek(1) == '\r' && peek(2) == '\n')))
        continued_line();
      else
        return;
    }
  }

  void continued_line() {
    bool const head = line_head_;
    at_ += peek(1) == '\r' ? 2 : 1;
    feed();
    line_head_ = head;
  }

  void comment() {
    gComment one;
    one.whole.begin = at_;
    one.line = line_;
    one.column = at_ - line_begin_ + 1;
    one.line_start = only_blanks_;
    if (text_[at_ + 1] == '/')
      line_comment();
    else
      block_comment();
    one.whole.end = at_;
    one.end_line = line_;
    only_blanks_ = false;
    out_.comments.push_back(one);
  }

  void line_comment() {
    for (;;) {
      void const * found = std::memchr(text_.data() + at_, '\n', size_ - at_);
      std::uint32_t const end =
          found ? static_cast<std::uint32_t>(static_cast<char const *>(found) - text_.data())
                : size_;
      std::uint32_t last = end;
      if (last > at_ && text_[last - 1] == '\r')
        --last;
      if (!found || text_[last - 1] != '\\') {
        at_ = last;
        return;
      }
      bool const head = line_head_;
      at_ = end;
      feed();
      line_head_ = head;
    }
  }

  void block_comment() {
    // A comment that is mended ends in front of the closer that was found.
    if (closer_ != text_.npos && closer_ < at_ + 2)
      closer_ = text_.find("*/", at_ + 2);
    bool const closed = closer_ != text_.npos;
    std::uint32_t const end =
        comment_end(closed ? static_cast<std::uint32_t>(closer_) + 2 : size_, closed);
    bool const head = line_head_;
    while (void const * feed_at = std::memchr(text_.data() + at_, '\n', end - at_)) {
      at_ = static_cast<std::uint32_t>(static_cast<char const *>(feed_at) - text_.data());
      feed();
    }
    // A directive may stand behind a comment; a comment over lines begins none of its own.
    line_head_ = head || line_head_;
    at_ = end;
  }

  // Where a comment of starred lines holds the opener of another at the head of a line, its own
  // "*/" was forgotten: it ends with the last starred line. So does one that is never closed.
  std::uint32_t comment_end(std::uint32_t end, bool closed) {
    std::uint32_t const last = last_starred_line(end);
    bool const open = last > 0 && last < end && (!closed || holds_opener(last, end));
    if (open && out_.open_comments.size() < most_open_comments)
      out_.open_comments.push_back(at_);
    return open ? last : end;
  }

  // Its end; 0 where the second line isn't starred.
  std::uint32_t last_starred_line(std::uint32_t end) const {
    std::uint32_t last = 0;
    for (std::size_t feed_at = text_.substr(0, end).find('\n', at_); feed_at != text_.npos;) {
      std::size_t const begin = text_.find_first_not_of(" \t\r", feed_at + 1);
      if (begin >= end || text_[begin] != '*')
        break;
      feed_at = text_.substr(0, end).find('\n', begin);
      last = static_cast<std::uint32_t>(std::min<std::size_t>(feed_at, end));
    }
    return last;
  }

  bool holds_opener(std::uint32_t from, std::uint32_t to) const {
    std::string_view const text = text_.substr(0, to);
    for (std::size_t at = text.find("/*", from); at != text.npos; at = text.find("/*", at + 2)) {
      std::size_t before = at;
      while (before > from && class_of(text[before - 1]) == blank)
        --before;
      if (text[before - 1] == '\n')
        return true;
    }
    return false;
  }

  void token(std::vector<gToken> & to) {
    gToken one;
    one.begin = at_;
    one.line_head = line_head_;
    switch (class_of(text_[at_])) {
    case letter:
      word(one);
      break;
    case digit:
      number(one);
      break;
    case quote:
      literal(one, at_);
      break;
    case sign:
      punctuator(one);
      break;
    default:
      one.type = token_junk;
      ++at_;
    }
    one.end = at_;
    line_head_ = only_blanks_ = false;
    to.push_back(one);
  }

  void word(gToken & one) {
    std::uint32_t end = at_ + 1;
    while (end < size_ && is_word_char(text_[end]))
      ++end;
    one.type = token_word;
    std::string_view const text = text_.substr(at_, end - at_);
    if (end < size_ && class_of(text_[end]) == quote && is_prefix(text)) {
      if (text.back() == 'R' && text_[end] == '"')
        raw_string(one, end);
      else
        literal(one, end);
      return;
    }
    one.word = word_of(text);
    at_ = end;
  }

  static bool is_prefix(std::string_view text) {
    return text == "L" || text == "R" || text == "u" || text == "U" || text == "u8" ||
           text == "LR" || text == "uR" || text == "UR" || text == "u8R";
  }

  void number(gToken & one) {
    one.type = token_number;
    for (++at_; at_ < size_; ++at_) {
      char const c = text_[at_];
      char const before = static_cast<char>(text_[at_ - 1] | 0x20);
      bool const exponent = (c == '+' || c == '-') && (before == 'e' || before == 'p') &&
                            (before == 'p' || !hexadecimal(one.begin));
      bool const separator = c == '\'' && is_word_char(peek(1)) && peek(1) != '_';
      if (!is_word_char(c) && c != '.' && !exponent && !separator)
        return;
    }
  }

  bool hexadecimal(std::uint32_t begin) const {
    return text_[begin] == '0' && begin + 1 < at_ && (text_[begin + 1] | 0x20) == 'x';
  }

  // From its quote to the partner on the same line. Without one the quote alone is junk, so that
  // the rest of the line stays code.
  void literal(gToken & one, std::uint32_t open) {
    char const mark = text_[open];
    if (open_quotes_line_ != line_)
      open_quotes_ = 0;
    for (std::uint32_t at = open + 1; at < size_ && open_quotes_ <= most_failures; ++at) {
      char const c = text_[at];
      if (c == mark)
        return end_literal(one, open, at + 1);
      if (c == '\n')
        break;
      if (c == '\\' && at + 1 < size_) {
        ++at;
        if (text_[at] == '\r' && at + 1 < size_ && text_[at + 1] == '\n')
          ++at;
      }
    }
    one.type = token_junk;
    at_ = open + 1;
    open_quotes_line_ = line_;
    ++open_quotes_;
  }

  void end_literal(gToken & one, std::uint32_t open, std::uint32_t end) {
    one.type = text_[open] == '"' ? token_string : token_character;
    while (end < size_ && is_word_char(text_[end])) // a suffix
      ++end;
    skip_lines_to(end);
  }

  void skip_lines_to(std::uint32_t end) {
    bool const head = line_head_;
    while (void const * found = std::memchr(text_.data() + at_, '\n', end - at_)) {
      at_ = static_cast<std::uint32_t>(static_cast<char const *>(found) - text_.data());
      feed();
    }
    line_head_ = head;
    at_ = end;
  }

  void raw_string(gToken & one, std::uint32_t open) {
    std::size_t const parenthesis = text_.substr(0, open + longest_delimiter).find('(', open);
    if (parenthesis == text_.npos || open_raw_strings_ > most_failures)
      return literal(one, open);
    std::string closer = ")";
    closer += text_.substr(open + 1, parenthesis - open - 1);
    closer += '"';
    std::size_t const found = text_.find(closer, parenthesis);
    if (found == text_.npos) {
      ++open_raw_strings_;
      return literal(one, open);
    }
    end_literal(one, open, static_cast<std::uint32_t>(found + closer.size()));
  }

  void punctuator(gToken & one) {
    char const c = text_[at_], next = peek(1);
    std::uint32_t size = 1;
    one.type = static_cast<std::uint8_t>(c);
    auto const is = [&](std::uint8_t type, std::uint32_t length) {
      one.type = type;
      size = length;
    };
    if (c == ':' && next == ':')
      is(token_scope, 2);
    else if (c == '-' && next == '>')
      is(token_arrow, peek(2) == '*' ? 3 : 2);
    else if (c == '.' && next == '.' && peek(2) == '.')
      is(token_ellipsis, 3);
    else if (c == '.' && class_of(next) == digit)
      return number(one);
    else if (c == '&' && next == '&')
      is(token_both, 2);
    else if (c == '<' && next == '<')
      is(token_op, peek(2) == '=' ? 3 : 2);
    else if (next == '=' && std::strchr("=!<>+-*/%&|^", c))
      is(token_op, c == '<' && peek(2) == '>' ? 3 : 2);
    else if (next == c && std::strchr("+-|", c))
      is(token_op, 2);
    at_ += size;
  }

  // Directives.

  void directive() {
    gDirective one;
    one.whole.begin = at_;
    one.token = static_cast<std::uint32_t>(out_.tokens.size());
    ++at_;
    line_head_ = only_blanks_ = false;
    of_directive_.clear();
    blanks(true);
    std::uint32_t const word_begin = at_;
    while (at_ < size_ && is_word_char(text_[at_]))
      ++at_;
    std::string_view const word = text_.substr(word_begin, at_ - word_begin);
    one.whole.end = at_;
    set_directive_kind(one, word);
    if (one.kind == gDirective::include)
      file_name(one);
    bool const prose = word == "error" || word == "warning" || word == "pragma";
    while (blanks(true), at_ < size_ && text_[at_] != '\n') {
      if (prose)
        ++at_;
      else
        token(of_directive_);
    }
    set_directive_parts(one, text_, of_directive_);
    out_.directives.push_back(one);
  }

  void file_name(gDirective & one) {
    blanks(true);
    one.system = peek(0) == '<';
    if (!one.system && peek(0) != '"')
      return;
    char const closer = one.system ? '>' : '"';
    std::size_t const line_end = std::min<std::size_t>(text_.find('\n', at_), size_);
    std::size_t const end = text_.substr(0, line_end).find(closer, at_ + 1);
    if (end == text_.npos)
      return;
    one.name = {at_ + 1, static_cast<std::uint32_t>(end)};
    at_ = static_cast<std::uint32_t>(end) + 1;
    one.whole.end = at_;
  }
};

} // namespace

bool is_word_char(char c) {
  return class_of(c) == letter || class_of(c) == digit;
}

gTokens read_tokens(std::string_view text) {
  return Lexer(text).made();
}

} // namespace Decl
