// Declarations in colours, with known names as links.
#pragma once

#include <functional>
#include <span>

#include "conv/atc/facts_line.h"
#include "conv/htm/colours.h"

namespace DeclarationText {

// Appends the link to what a name means; false if it means nothing that is known here.
using gLinker = std::function<bool(std::string_view name, std::string & out)>;

// Appends the declaration as finished text.
void set(std::string_view text, gLanguage language, gColours const & colours, gLinker const & link,
         std::string & out);

// The declared name, as a stretch of the declaration's bytes, and the finished text in its place.
struct gOwnName {
  gStretch place;
  std::string shown;
};
// The same for a declaration of one line, in which the stretches in `differing` are set off. False,
// and nothing is appended, if the name isn't found as words and signs of their own.
bool set_with_name(std::string_view text, gLanguage language, gColours const & colours,
                   gLinker const & link, gOwnName const & own, std::span<gStretch const> differing,
                   std::string & out);

} // namespace DeclarationText
