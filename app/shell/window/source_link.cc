// The standard editor of the settings is one that most machines don't have. There the desktop opens
// the file with whatever it has for it.

#include "app/shell/window/source_link.h"

#include "app/options/options.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/outside.h"

namespace {

constexpr char const * any_editor = "notepad.exe";
constexpr char const * desktop_opener = "xdg-open";

// A "$file" in the name of the file itself isn't touched.
std::string filled(std::string_view argument, gReportPlace const & place) {
  std::string text;
  while (!argument.empty()) {
    if (argument.starts_with("$file")) {
      text += place.path;
      argument.remove_prefix(5);
    } else if (argument.starts_with("$line")) {
      text += std::to_string(place.line > 0 ? place.line : 1);
      argument.remove_prefix(5);
    } else {
      text += argument.front();
      argument.remove_prefix(1);
    }
  }
  return text;
}

bool refuse(std::string const & text) {
  Vlb::outside().box(text, gOutside::Icon::exclamation);
  return false;
}

std::string shown(std::string const & path) {
  gString text;
  Vlb::add_shown(text, path);
  return text;
}

} // namespace

std::vector<std::string> Shell::editor_command(gReportPlace const & place, gDesktop & desktop) {
  std::string const program = Vapp::option_string("srclink_editor_cmd");
  if (program.empty() || (program == any_editor && !desktop.has_program(program)))
    return {desktop_opener, place.path};
  // A path with blanks is a program, too.
  std::vector<std::string> command = {program};
  if (!desktop.has_program(program))
    command = split_command(program);
  for (std::string const & argument : split_command(Vapp::option_string("srclink_editor_args")))
    command.push_back(filled(argument, place));
  return command;
}

bool Shell::open_source(gReportPlace const & place, gDesktop & desktop) {
  if (place.path.empty())
    return false;
  gReportPlace absolute = place;
  Vapp::make_absolute_vlp(absolute.path);
  if (!gFileSystem::file_exists(absolute.path))
    return refuse("File '" + shown(absolute.path) + "' does not exist.");
  std::vector<std::string> const command = editor_command(absolute, desktop);
  return desktop.start(command) ||
         refuse("The editor '" + command.front() +
                "' cannot be started.\nThe general options name the editor for source links.");
}
