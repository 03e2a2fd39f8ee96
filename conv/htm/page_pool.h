// The pages of units and of sources, made on all threads of a conversion.
#pragma once

#include <functional>
#include <vector>

#include "conv/htm/source_pages.h"
#include "conv/htm/unit_pages.h"

namespace Pages {

// Files and reports are the same with any number of threads. Each unit is entered in the index of
// words, in the order of the document.
void write_units(gConversion & conversion, gSite & site, gColours const & colours,
                 gNavigation const & navigation, gContents const & contents, gScopes const & scopes,
                 gIncludes const & includes, gSearchIndex & search);
// Those that links lead to. `others` are done at the same time, on any of the threads; none of them
// may ask for the address of a source any more.
void write_sources(gConversion & conversion, gSite const & site, gColours const & colours,
                   gNavigation const & navigation, gIncludes const & includes,
                   std::vector<std::function<void()>> const & others);

} // namespace Pages
