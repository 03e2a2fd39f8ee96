// A C or C++ source as tokens, comments and directives.
#pragma once

#include "ana/decl/cpp_words.h"
#include "ana/decl/declaration.h"

namespace Decl {

// A punctuator of one character is its own code; "<" and ">" never join another of their kind but
// in "<<", "<=", ">=" and "<=>", which are `op`.
enum gTokenType : std::uint8_t {
  token_end = 0, // behind the last one
  token_word = 'a',
  token_number = '0',
  token_string = '"',
  token_character = '\'',
  token_scope = 'S',    // ::
  token_arrow = 'A',    // ->
  token_ellipsis = 'E', // ...
  token_both = 'B',     // &&
  token_op = 'O',       // any other of several characters
  token_junk = 'J',     // a quote without its partner, a byte that C doesn't know
};

// Index of no token.
constexpr std::uint32_t no_token = ~0u;

struct gToken {
  std::uint32_t begin = 0, end = 0;
  std::uint32_t link = no_token; // of a bracket: its partner
  std::uint8_t type = token_end;
  gWord word = gWord::name; // of a word
  bool line_head = false;   // the first token on its line
};

struct gDirective {
  enum Kind : std::uint8_t { if_, elif, else_, endif, define, include, undef, other };
  Kind kind = other;
  bool literally_zero = false; // "#if 0"
  bool literally_one = false;  // "#if 1"
  bool negated = false;        // "#ifndef", "#elifndef"
  bool of_name = false;        // "#ifdef", "#ifndef" and their kin
  bool system = false;         // "#include <...>"
  std::uint32_t token = 0;     // the first token behind it
  gRange whole;                // from "#" to its last token
  gRange name;                 // of a macro, a file
  gRange parameters;           // of a macro, with its parentheses
  gRange value;                // of a macro; the condition
};

struct gTokens {
  std::vector<gToken> tokens; // the last one is `token_end`, at the size of the text
  std::vector<gComment> comments;
  std::vector<gDirective> directives;
  std::vector<std::uint32_t> open_comments; // begins of those without their "*/"
};

// Begins of lines; answers lines and columns from 1.
class gLines {
public:
  explicit gLines(std::string_view text);
  std::uint32_t line(std::uint32_t position) const;
  std::uint32_t column(std::uint32_t position) const;

private:
  std::vector<std::uint32_t> begins_;
  mutable std::size_t last_ = 0; // most questions come near the one before
};

gTokens read_tokens(std::string_view text);
bool is_word_char(char c);

} // namespace Decl
