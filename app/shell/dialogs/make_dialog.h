// The dialogs of the program by the names that commands know them by.
#pragma once

#include <memory>
#include <string_view>

#include "app/shell/dialogs/dialog.h"
#include "vlb/outside.h"

namespace Shell {

// A new dialog, on the page with that number from 0; null if the name is unknown.
std::unique_ptr<gDialog> make_dialog(std::string_view name, int page = 0);

// What the port's operation for dialogs does: makes it and has the host show it. False for an
// unknown name and for a modal dialog that was cancelled.
bool run_dialog(gOutside::Dialog const & dialog);

} // namespace Shell
