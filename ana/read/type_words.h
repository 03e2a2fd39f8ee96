// Types as words and signs, in one spelling.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ana/decl/declaration.h"

// They borrow from the text that was read.
using gTypeWords = std::vector<std::string_view>;

// Words and single signs; comments go.
gTypeWords type_words(std::string_view text);
// With a blank only where two words would grow together.
std::string joined_words(gTypeWords const & words);

// The type of a parameter as its function sees it, `words` being all of it without the parameter's
// name: a constant copy is a copy, an array is a pointer, a function is one to it. "const int&",
// "int const &" are one, and so are "struct T" and "T", "unsigned" and "unsigned int".
std::string parameter_type(gTypeWords words);
// The same of a result, of what follows a colon and the like: nothing decays.
std::string plain_type(gTypeWords words);

// A signature in which each qualified name is its last part alone: "std::string" is "string".
std::string without_qualifiers(std::string_view signature);
