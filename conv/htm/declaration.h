// Declarations for readers: long ones with one parameter a line, known names as links.
#pragma once

#include <functional>

#include "conv/htm/colours.h"

namespace Declaration {

// A declaration that is one line of more than 80 characters gets its parameters on lines of their
// own. Others stay as they are.
std::string broken(std::string_view text);

// Appends the link to what a name means; false if it means nothing that is known here.
using gLinker = std::function<bool(std::string_view name, std::string & out)>;

// Appends the declaration as finished text.
void set(std::string_view text, gLanguage language, gColours const & colours, gLinker const & link,
         std::string & out);

} // namespace Declaration
