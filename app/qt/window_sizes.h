// The sizes that the user gave to windows, kept in the settings.
#pragma once

class QWidget;

namespace Gui {

// `context` is the number of the dialog's first page in the help map. A window that the user never
// resized takes the size of its contents.
void restore_size(QWidget & window, int context);
void keep_size(QWidget const & window, int context);

} // namespace Gui
