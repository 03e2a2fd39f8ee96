// Who shows dialogs: a window system, or a test that plays the user.
#pragma once

#include <memory>

#include "app/shell/dialogs/dialog.h"

class gDialogHost {
public:
  virtual ~gDialogHost() = default;
  // Shows the dialog in front of the one that has the focus, and returns when it is closed: true
  // for OK.
  virtual bool show(gDialog & dialog) = 0;
  // Shows the dialog beside the others and returns at once; destroys it when it is closed, and
  // calls `closed` behind that.
  virtual void open(std::unique_ptr<gDialog> dialog, std::function<void()> closed) = 0;
};

namespace Shell {

// The host in use; without one nothing is shown, and every dialog counts as cancelled.
gDialogHost & dialog_host();
// Null for none; answers the one before. The caller keeps ownership.
gDialogHost * set_dialog_host(gDialogHost * host);

// Shows a dialog of the program modally: true for OK.
inline bool show_dialog(gDialog & dialog) {
  return dialog_host().show(dialog);
}

} // namespace Shell
