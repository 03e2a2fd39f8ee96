// Where choosers begin, and the chooser that commands and dialogs share.
#pragma once

#include "vlb/gpathstring.h"

namespace Shell {

// The folder of the last project; the program's folder if there was none.
gPathstring project_or_program_folder();

// Lets the user choose the output script. With a path at hand the chooser begins there: the path is
// made absolute against `base`, the project's folder. Empty when cancelled, and for a script that
// can't be read, which is reported.
gPathstring choose_script(gPathstring const & at_hand, gPathstring const & base);

} // namespace Shell
