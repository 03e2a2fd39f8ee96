// Tells that the attributes of the project were written.
#pragma once

#include "store/csignal.h"

namespace Shell {

// Raised by the dialog of the attributes.
cSignal const & attributes_written();

} // namespace Shell
