// Reading the project is what most commands begin with, and writing it what some end with.

#include "app/cli/commands.h"
#include "app/options/project.h"

bool load_project(std::string const & path, gCommandContext & context) {
  if (Vapp::project().load(path, false))
    return true;
  std::string const reason = Vapp::project().load_error();
  context.outside.tell(reason.empty() ? "Cannot read project file '" + path + "'" : reason);
  return false;
}

bool save_project(gCommandContext & context) {
  if (Vapp::project().save())
    return true;
  context.outside.tell("'" + Vapp::project().file() + "' stays as it was. " +
                       (Vapp::project().write_protected()
                            ? "Give yourself the right to write the file."
                            : "Its folder must exist, have room and let you write in it."));
  return false;
}
