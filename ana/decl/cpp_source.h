// One source under reading: its text, tokens, lines and what is known of macros.
#pragma once

#include "ana/decl/cpp_macros.h"
#include "ana/decl/cpp_tokens.h"

namespace Decl {

// Whether the name of a macro sounds of linkage, warnings and the like.
bool is_attribute_shape(std::string_view text);

struct gSource {
  std::string_view text;
  std::vector<gToken> & tokens; // without those of branches that aren't read
  gLines const & lines;
  gMacroTable const & macros;

  gToken const & operator[](std::uint32_t at) const { return tokens[at]; }
  std::uint8_t type(std::uint32_t at) const { return tokens[at].type; }
  gWord word(std::uint32_t at) const {
    return tokens[at].type == token_word ? tokens[at].word : gWord::name;
  }
  bool is_word(std::uint32_t at, gWord word) const {
    return tokens[at].type == token_word && tokens[at].word == word;
  }
  // An identifier that isn't a word of the language, or one that is only so in its place.
  bool is_name(std::uint32_t at) const;
  std::string_view spelling(std::uint32_t at) const {
    return text.substr(tokens[at].begin, tokens[at].end - tokens[at].begin);
  }
  // What stands at `at` could be the last word of a declarator.
  bool ends_declarator(std::uint32_t at) const;
  // The partner of an opening bracket, or no_token.
  std::uint32_t partner(std::uint32_t at) const { return tokens[at].link; }
  // Behind the group that the bracket at `at` opens; behind the bracket where it has no partner.
  std::uint32_t behind(std::uint32_t at) const;
  // The stretch from the first token to the last one, which is excluded.
  gRange range(std::uint32_t first, std::uint32_t last) const;
  // What the name at `at` stands for if it is a macro.
  gMacroSense sense(std::uint32_t at) const;
  // A macro that says how something is linked, called or warned of: known, or by its shape.
  bool is_attribute_macro(std::uint32_t at) const;
  bool is_known_attribute(std::uint32_t at) const; // by its definition alone
  bool is_capital(std::uint32_t at) const { return Decl::is_capital(spelling(at)); }
  // Links the angle brackets of template arguments between two tokens, outside of other brackets.
  void link_angles(std::uint32_t first, std::uint32_t last, bool in_values = false) const;
  bool closes_arguments(std::uint32_t angle, bool in_values) const;
  bool adjacent(std::uint32_t at) const { // to the token behind it
    return tokens[at].end == tokens[at + 1].begin;
  }
};

} // namespace Decl
