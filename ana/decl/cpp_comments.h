// What stands around each comment.
#pragma once

#include "ana/decl/cpp_branches.h"
#include "ana/decl/cpp_source.h"

namespace Decl {

// Moves the comments of `tokens` to `out`, with their places among its declarations.
void place_comments(gSource const & source, gTokens & tokens, gBranches const & branches,
                    gFileDeclarations & out);

} // namespace Decl
