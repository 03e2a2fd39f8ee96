#include "app/options/settings.h"

#include "app/options/options.h"
#include "store/text_form.h"
#include "vlb/gfilesystem.h"

namespace {

gPathstring settings_file() {
  return Vapp::ini_dir().append("vellumar.ini");
}

// The stored folder may be gone since the last time.
void check_project_dir() {
  gString folder;
  if (!cat::read(Vapp::options_ini["vlp_dir"], folder) || !gFileSystem::dir_exists(folder))
    Vapp::options_ini["vlp_dir"] = cat::make(Vapp::program_dir());
}

} // namespace

gPathstring Vapp::ini_dir() {
  return gPathstring(program_dir()).append("ini");
}

bool Vapp::load_settings(std::string * reason) {
  // A folder that was just made can't hold settings yet.
  bool const fresh = !gFileSystem::dir_exists(ini_dir()) && gFileSystem::mk_dir(ini_dir());
  gPathstring const file = settings_file();
  bool const good =
      fresh || !gFileSystem::file_exists(file) || file2map(file.c_str(), options_ini, reason);
  check_project_dir();
  return good;
}

bool Vapp::save_settings() {
  return write2file(options_ini, settings_file().c_str(), true);
}
