// Pictures of the tool bar and the buttons.
#pragma once

#include <QIcon>
#include <string_view>

namespace Gui {

// A picture by the name that the menu file gives it, in the colours of the palette; an empty icon
// for a name that it doesn't know.
QIcon icon(std::string_view name);
// The picture of the program.
QIcon program_icon();

} // namespace Gui
