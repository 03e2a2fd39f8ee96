// What is wrong with file groups, for whoever listens.
#pragma once

#include "vlb/gfilelist.h"

namespace Vapp {

// Sends each problem of a list out as an error record. A list that only counts isn't given here.
void publish_problems(gFileList const & files);

} // namespace Vapp
