// What a reader wants to know of a thing before its text: where it belongs, how it is taken in, and
// whether it can be relied on.
#pragma once

#include "conv/htm/htm_setter.h"
#include "conv/htm/includes.h"

// Finished texts; empty where there is nothing to say.
struct gUnitHead {
  std::string title;     // the whole name, its scopes as links
  std::string include;   // what a user's code has to take in
  std::string condition; // of the preprocessor
  std::string deprecated, since;
};

namespace UnitHead {

// Of a unit with this text. A member says nothing that the head of its page has said.
gUnitHead of(gSite const & site, gHtmSetter & setter, gIncludes const & includes, int unit,
             gUnitText const & text);

// The address of a header as an #include names it: behind the last folder "include", else as the
// sources lie. Empty for what isn't included.
std::string_view include_path(std::string_view path, std::string_view shown);

} // namespace UnitHead
