// Where the program's folder is shared by all users, and so closed to them, each has a settings
// file of his own; the shipped defaults stay beside the program.

#include "app/options/settings.h"

#include <cstdlib>
#include <filesystem>

#include <unistd.h>

#include "app/options/defaults.h"
#include "app/options/options.h"
#include "store/text_form.h"
#include "vlb/gfilesystem.h"

namespace {

constexpr char const * file_name = "vellumar.ini";

bool can_write(gPathstring const & folder) {
  return gFileSystem::dir_exists(folder) && ::access(folder.c_str(), W_OK) == 0;
}

std::string variable(char const * name) {
  char const * const value = std::getenv(name);
  return value ? value : "";
}

// The user's folder for settings; empty if there is no telling.
gPathstring user_dir() {
  gPathstring folder(variable("XDG_CONFIG_HOME"));
  if (!folder.is_absolute()) {
    folder = variable("HOME");
    if (folder.is_absolute())
      folder.append(".config");
  }
  return folder.is_absolute() ? folder.append("vellumar") : gPathstring();
}

gPathstring shared_file() {
  return Vapp::ini_dir().append(file_name);
}

gPathstring settings_file() {
  gPathstring own = user_dir();
  return own.empty() || can_write(Vapp::ini_dir()) ? shared_file() : own.append(file_name);
}

// The stored folder may be gone since the last time.
void check_project_dir() {
  gString folder;
  if (!cat::read(Vapp::options_ini["vlp_dir"], folder) || !gFileSystem::dir_exists(folder))
    Vapp::options_ini["vlp_dir"] = cat::make(Vapp::program_dir());
}

bool read(gPathstring const & file, std::string * reason) {
  bool const good = file2map(file.c_str(), Vapp::options_ini, reason);
  Vapp::restore_wrong_settings(Vapp::options_ini);
  return good;
}

// What can't be read is kept beside, since it may hold what the user wants back.
void keep_damaged(gPathstring const & file) {
  cMapObj ignored;
  std::error_code error;
  if (gFileSystem::file_exists(file) && !file2map(file.c_str(), ignored))
    std::filesystem::rename(file.c_str(), (file + ".bad").c_str(), error);
}

} // namespace

gPathstring Vapp::ini_dir() {
  return gPathstring(program_dir()).append("ini");
}

bool Vapp::load_settings(std::string * reason) {
  if (!gFileSystem::dir_exists(ini_dir()))
    gFileSystem::mk_dir(ini_dir());
  gPathstring file = settings_file();
  if (!gFileSystem::file_exists(file))
    file = shared_file();
  bool const good = !gFileSystem::file_exists(file) || read(file, reason);
  check_project_dir();
  return good;
}

bool Vapp::save_settings() {
  gPathstring const file = settings_file();
  gFileSystem::mk_dirs(file.dir_name());
  keep_damaged(file);
  return write2file(options_ini, file.c_str(), true);
}
