// Which program the user's desktop opens a kind of file with.
#pragma once

#include <string>
#include <string_view>

namespace Shell {

// The command line for a MIME type, with "%1" for the file; empty if no entry is found. Looks into
// the lists and entries below $XDG_CONFIG_HOME, $XDG_DATA_HOME and $XDG_DATA_DIRS.
std::string desktop_command(std::string_view mime_type);
// The value of Exec of a desktop entry in the form of a command line.
std::string command_of_exec(std::string_view exec);
// The value of a key in a section of a desktop file; empty if it isn't there.
std::string desktop_value(std::string_view text, std::string_view section, std::string_view key);

} // namespace Shell
