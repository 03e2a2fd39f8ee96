// The tokens of a Pascal text, and the scanner that cuts them.
#pragma once

#include <cstdint>
#include <string_view>

#include "ana/decl/pas_words.h"

namespace Decl {

// A sign stands for itself; these stand for tokens of more than one byte.
enum gPasSign : char {
  pas_word_sign = 'a', // names and words
  pas_number = '0',    // also "#13" and "^["
  pas_text = '\'',     // strings
  pas_assign = 'A',    // :=
  pas_dots = 'D',      // ..
};

struct gPasToken {
  static constexpr std::uint32_t no_partner = 0xFFFFFFFFu;

  std::uint32_t begin = 0, end = 0; // bytes
  // Of an opener the token that closes it, or the first one behind it where `open_end` is set; of a
  // routine's word the last "end" of its body.
  std::uint32_t partner = no_partner;
  char sign = 0;
  gPasWord word = gPasWord::none;
  bool line_start = false; // the first token of its line
  bool open_end = false;   // its closer is missing
};

struct gPasLexeme {
  enum Kind : std::uint8_t { token, comment, directive };
  Kind kind = token;
  gPasToken token_made;             // of a token
  std::uint32_t begin = 0, end = 0; // of comments and directives, with their brackets
  bool line_start = false;          // nothing but blanks in front of it on its line
};

// One pass over the bytes. Whoever calls knows whether the next ones belong to an assembler block,
// where quotes, "#" and most words mean nothing.
class gPasScanner {
public:
  explicit gPasScanner(std::string_view text);

  // False at the end of the text.
  bool next(bool in_assembler, gPasLexeme & lexeme);

private:
  std::string_view text_;
  std::uint32_t at_ = 0;
  std::uint32_t size_;
  bool token_on_line_ = false, comment_on_line_ = false;
  char last_sign_ = 0;         // of the token in front
  bool last_end_ = false;      // that token is the word "end"
  bool may_nest_ = true;       // no comment has shown yet that an inner "{" opens nothing here
  std::uint32_t no_block_ = 0; // bits: no closing row of that many quotes is ahead

  char peek(std::uint32_t ahead) const { return at_ + ahead < size_ ? text_[at_ + ahead] : '\0'; }
  bool comment_or_directive(gPasLexeme & lexeme, std::uint32_t from);
  std::uint32_t end_of_braces(std::uint32_t from) const;
  std::uint32_t end_of_comment(std::uint32_t from);
  bool assembler(gPasLexeme & lexeme);
  bool finish(gPasLexeme & lexeme, std::uint32_t begin, char sign);
  std::uint32_t end_of_number(std::uint32_t at) const;
  std::uint32_t end_of_text(std::uint32_t at);
  std::uint32_t end_of_block_text(std::uint32_t at);
  std::uint32_t end_of_word(std::uint32_t at) const;
  bool sign_token(gPasLexeme & lexeme);
};

} // namespace Decl
