// The numbers of the main window and its commands in the help map. Those of dialogs and pages stand
// in the dialogs' context.h; a command has the number of the dialog that it opens.
#pragma once

#include <string_view>

constexpr int main_window_context = 300;

// The number for a command by its name; that of the main window for one without a text of its own.
int help_context(std::string_view command);
