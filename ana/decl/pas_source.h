// A Pascal text made ready for reading: tokens of the branches that count, openers with their
// partners, comments, conditions and includes.
#pragma once

#include <string_view>
#include <vector>

#include "ana/decl/declaration.h"
#include "ana/decl/pas_conditions.h"
#include "ana/decl/pas_tokens.h"

namespace Decl {

// An include or a comment, and the number of tokens in front of it.
struct gPasPlace {
  std::uint32_t index; // into the list of comments or of includes
  std::uint32_t token;
};

struct gPasSource {
  std::string_view text;
  std::vector<gPasToken> tokens;
  std::vector<std::uint32_t> lines; // offset of each line's first byte
  std::vector<gPasPlace> comment_places, include_places;
  std::vector<gPasConditionChange> conditions;
  std::vector<gPasFault> faults;

  std::uint32_t line_of(std::uint32_t offset) const; // from 1
  std::uint32_t column_of(std::uint32_t offset) const {
    return offset - lines[line_of(offset) - 1];
  }
  std::int32_t condition_at(std::uint32_t offset) const;
  std::string_view text_of(gPasToken const & token) const {
    return text.substr(token.begin, token.end - token.begin);
  }
};

// Fills comments, conditions and includes of `out`, as far as bytes tell of them.
gPasSource prepare_pascal(std::string_view text, gPascalContext const & context,
                          gFileDeclarations & out);

} // namespace Decl
