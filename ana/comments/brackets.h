// Commands whose text stands in brackets, as Pascal's have it: "@param(x the first)".
#pragma once

#include <string>
#include <string_view>

#include "ana/comments/tokens.h"
#include "ana/comments/translate.h"

// The same comment with commands that a line holds, with elements and tokens. May have more lines.
std::string without_brackets(std::string_view comment, gCommentHints const & hints,
                             gTokens & tokens);
