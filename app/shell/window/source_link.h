// From a report to its place in the user's editor.
#pragma once

#include <string>
#include <vector>

#include "app/shell/window/start_program.h"
#include "vlb/greport.h"

namespace Shell {

// The command that opens a file at a line, by program and arguments of the settings. An editor
// that this machine doesn't have is the desktop's own program for the file.
std::vector<std::string> editor_command(gReportPlace const & place, gDesktop & desktop);
// Runs it; a box with the reason if the file is gone or no editor starts.
bool open_source(gReportPlace const & place, gDesktop & desktop);

} // namespace Shell
