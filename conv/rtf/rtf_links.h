// Links of a finished document whose places aren't there.
#pragma once

#include <string_view>

#include "vlb/gpathstring.h"

namespace Rtf {

// A report for each such place, with the line of `path` that names it first.
void report_dead_links(std::string_view text, gPathstring const & path);
// The same of the topics of a help file.
void report_dead_jumps(std::string_view text, gPathstring const & path);

} // namespace Rtf
