// Everything of the options that lives as long as the program.
#include "app/options/options.h"

#include <filesystem>

#include <sys/auxv.h>

#include "app/options/attributes.h"
#include "app/options/completion.h"
#include "app/options/defaults.h"
#include "app/options/project.h"
#include "app/options/settings.h"
#include "vlb/gexception.h"

namespace {

// Without /proc the kernel still tells by which name it started the program.
gPathstring own_folder() {
  std::error_code error;
  std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  auto const * started = reinterpret_cast<char const *>(::getauxval(AT_EXECFN));
  if (error && started)
    program = std::filesystem::canonical(started, error);
  return error ? gPathstring(".") : gPathstring(program.parent_path().string());
}

// Made at first use, because the trees below need it while they are built.
gPathstring & program_folder() {
  static gPathstring folder = own_folder();
  return folder;
}

cMapObj new_project() {
  cMapObj options;
  Vapp::build_defaults(options);
  Vapp::complete_options(options);
  Vapp::rebuild_values(options);
  return options;
}

cMapObj new_settings() {
  cMapObj options;
  Vapp::build_ini_defaults(options);
  return options;
}

} // namespace

namespace Vapp {

cMapObj options = new_project();
cMapObj options_ini = new_settings();

std::atomic<bool> ana_active = false;
std::atomic<bool> ana_success = false;
std::atomic<bool> output_active = false;
std::atomic<bool> user_break = false;

gProject & project() {
  static gProject current;
  return current;
}

gPathstring const & program_dir() {
  return program_folder();
}
void set_program_dir(gPathstring const & folder) {
  program_folder() = folder;
}

std::set<gPathstring> & incomplete_files() {
  static std::set<gPathstring> files;
  return files;
}

void poll_break() {
  if (user_break)
    throw gExcUserBreak();
}

namespace {

cRef<cObj> step(cRef<cObj> const & at, std::string_view key) {
  cRef<cObj> const value = at ? at->at(key) : options.at(key);
  return cat::is_nil(value) ? nullptr : value;
}

} // namespace

cRef<cObj> option(std::string_view path) {
  cRef<cObj> at;
  for (;;) {
    std::size_t const end = path.find('/');
    at = step(at, path.substr(0, end));
    if (!at || end == path.npos)
      return at;
    path.remove_prefix(end + 1);
  }
}

cRef<cObj> option(std::initializer_list<std::string_view> keys) {
  cRef<cObj> at;
  for (std::string_view key : keys)
    if (at = step(at, key); !at)
      break;
  return at;
}

namespace {

cMapObj const & tree_of(gOptionRow const & row) {
  return row.tree == gOptionTree::settings ? options_ini : options;
}

} // namespace

bool option_bool(gFlagName name) {
  return flag_in(tree_of(name.row()), name.row());
}

int option_int(gNumberName name) {
  return number_in(tree_of(name.row()), name.row());
}

gString option_string(gTextName name) {
  return text_in(tree_of(name.row()), name.row());
}

std::string & make_absolute_vlp(std::string & path) {
  gString folder;
  if (!cat::read(options_ini.at("vlp_dir"), folder) || folder.empty())
    folder = program_dir();
  gPathstring absolute(path);
  absolute.make_absolute(folder);
  return path = std::move(absolute);
}

gPathstring option_path(gTextName name) {
  std::string text = option_string(name);
  return gPathstring(make_absolute_vlp(text));
}

} // namespace Vapp
