// Reading the project is what most commands begin with.

#include "app/cli/commands.h"
#include "app/options/project.h"

bool load_project(std::string const & path, gCommandContext & context) {
  if (Vapp::project().load(path, false))
    return true;
  std::string const reason = Vapp::project().load_error();
  context.outside.tell(reason.empty() ? "Cannot read project file '" + path + "'" : reason);
  return false;
}
