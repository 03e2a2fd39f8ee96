// Reading the project is what most commands begin with, and writing it what some end with.

#include "app/cli/commands.h"
#include "app/options/options.h"
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
  gString path;
  cat::read(Vapp::options_ini.at("vlp_file"), path);
  context.outside.tell(
      "'" + path + "' stays as it was. Its folder must exist, have room and let you write in it.");
  return false;
}
