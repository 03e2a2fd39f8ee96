// Declarations in colours, with known names as links.
#pragma once

#include <functional>

#include "conv/htm/colours.h"

namespace DeclarationText {

// Appends the link to what a name means; false if it means nothing that is known here.
using gLinker = std::function<bool(std::string_view name, std::string & out)>;

// Appends the declaration as finished text.
void set(std::string_view text, gLanguage language, gColours const & colours, gLinker const & link,
         std::string & out);

} // namespace DeclarationText
