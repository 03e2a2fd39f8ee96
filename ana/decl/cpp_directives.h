// What a directive says, told from its word and its tokens.
#pragma once

#include <vector>

#include "ana/decl/cpp_tokens.h"

namespace Decl {

// `word`: "ifdef" and so on.
void set_directive_kind(gDirective & one, std::string_view word);
// Name, parameters and value, from the tokens behind the word; the ranges are those of `text`.
void set_directive_parts(gDirective & one, std::string_view text,
                         std::vector<gToken> const & tokens);

} // namespace Decl
