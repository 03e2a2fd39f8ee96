// What a Doxyfile asks for, in the words of this program.
#pragma once

#include "app/shell/doxyfile.h"
#include "app/shell/source_walk.h"

namespace Shell {

// What is documented: its INPUT, or the folder that it stands in.
std::vector<gPathstring> doxyfile_sources(gDoxyfile const & file);
// Which files of those count.
gWalkFilter doxyfile_filter(gDoxyfile const & file);
// Puts the rest into the options of the loaded project; what the file doesn't say stays.
void take_doxyfile_options(gDoxyfile const & file);

} // namespace Shell
