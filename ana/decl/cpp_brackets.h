// The map of brackets: which one closes which.
#pragma once

#include "ana/decl/cpp_tokens.h"

namespace Decl {

struct gBracketFault {
  std::uint32_t token;
  std::string_view reason;
};

// Links round, square and curly brackets to their partners, both ways. A curly bracket that is
// never closed is linked to the token that it ends in front of, which isn't linked back; other
// brackets without a partner stay without a link. Comments of the text may tell what a "}" closes.
std::vector<gBracketFault> link_brackets(std::vector<gToken> & tokens, gLines const & lines,
                                         std::string_view text);

} // namespace Decl
