// The output folder: what a dialog asks before it takes one, and the dialog of its own.
#pragma once

#include "ana/output_folder.h"
#include "app/shell/dialogs/dialog.h"

namespace Shell {

enum class gFolderCheck { passed, refused, empty };

// Whether a dialog may take the folder that the user typed, relative to `base`. Makes the folder
// where it is missing. Questions and refusals are told, but an empty text. `ask` is false where the
// user has agreed to the loss of what the folder holds.
gFolderCheck check_output_folder(gString const & typed, gPathstring const & base,
                                 gProtectedPlaces const & places, bool ask = true);

} // namespace Shell

class gDefineOutdir : public gDialog {
public:
  gDefineOutdir();
};
