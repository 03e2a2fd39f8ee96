// Loading is the same for files and new projects: an empty tree gets the defaults, then the file,
// then what is still missing.
#include "app/options/project.h"

#include <ostream>

#include "app/options/attributes.h"
#include "app/options/completion.h"
#include "app/options/defaults.h"
#include "app/options/input_check.h"
#include "app/options/options.h"
#include "store/cerr.h"
#include "store/text_form.h"
#include "vlb/gfilelist.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/outside.h"

namespace Vapp {

bool gProject::load(gPathstring const & path, bool check) {
  reset();
  bool const good = read(path);
  modified_ = false;
  if (!good) {
    reset();
    complete(false);
    refresh_title();
    return false;
  }
  set_project_name(path);
  refresh_title();
  Msg::log() << "Project loaded: " << path_ << std::endl;
  complete(true);
  if (check && !check_input_files())
    ask_for_correction();
  return true;
}

void gProject::load_defaults() {
  reset();
  mark_modified();
  complete(false);
}

// The type of every stored value exists from the start, so nothing has to be made sure of here.
void gProject::reset() {
  sig_replaced();
  options.clear();
  build_defaults(options);
  ana_success = false;
  path_ = gPathstring();
  name_.clear();
  file_ = gPathstring();
  options_ini["vlp_file"] = cat::make("");
}

namespace {

// A damaged project still begins like one; a script or a source that was named instead doesn't.
bool is_something_else(gPathstring const & path) {
  std::string text;
  if (!gFileSystem::read_file(path, text))
    return false;
  std::size_t const begin = text.find_first_not_of("\xEF\xBB\xBF \t\r\n");
  return begin != text.npos && text[begin] != '{';
}

} // namespace

// Attributes of the wrong shape make the file one that can't be read.
bool gProject::read(gPathstring const & path) {
  load_error_.clear();
  if (!file2map(path.c_str(), options, &load_error_)) {
    if (is_something_else(path))
      load_error_ = path + ": this is no project file. 'vellumar new' writes one.";
    return false;
  }
  restore_wrong_types(options);
  try {
    rebuild_values(options);
  } catch (cException const & e) {
    load_error_ = path + ": " + e.as_string();
    return false;
  }
  return true;
}

void gProject::complete(bool tell) {
  auto const dangling = complete_options(options);
  for (gDanglingSubentry const & entry : dangling) {
    if (!tell)
      continue;
    Vlb::outside().box(entry.text(), gOutside::Icon::exclamation);
    mark_modified();
  }
  rebuild_values(options);
}

void gProject::ask_for_correction() {
  refresh_title();
  auto const answer =
      Vlb::outside().ask_yes_no("The input file specification in the project\nis no longer correct "
                                "(see message window).\n\nCorrect it now?");
  if (answer == gOutside::Answer::yes)
    Vlb::outside().dialog("gDefineSrc");
}

namespace {

void add_group(gFileList & list, cObj const & group) {
  gString paths, files;
  cat::read(group.at("path"), paths);
  cat::read(group.at("files"), files);
  list.clear();
  list.add(paths, files, 5);
  for (gString const & problem : list.problems())
    Msg::log() << problem << std::endl;
  publish_problems(list);
}

} // namespace

bool gProject::check_input_files() const {
  unsigned code = 0;
  cErrSlot const slot([&](cErr & error) { code = error.code(); });
  gFileList list(0);
  if (!list.cur_dir(option_path("inputcurdir")))
    return false;
  cRef<cObj> const groups = option("inputfiles");
  for (cIterObj it = groups ? groups->begin() : cIterObj(nullptr); it.valid(); it++)
    add_group(list, *it);
  return code == 0;
}

std::string gProject::title() const {
  gString const own = option_string("atc_title");
  return own.empty() ? gPathstring(name_).base_name() : own;
}

void gProject::set_project_name(gPathstring const & path) {
  path_ = path;
  path_.make_absolute(gFileSystem::get_curdir());
  // ".." stays: behind a symbolic link it isn't the folder that the text says.
  if (path_.find("..") == path_.npos)
    path_.normalize(true);
  name_ = path_.file_name();
  file_ = path_;
  options_ini["vlp_file"] = cat::make(path_);
  options_ini["vlp_dir"] = cat::make(path_.dir_name());
}

void gProject::mark_modified() {
  modified_ = true;
  refresh_title();
}

void gProject::refresh_title() const {
  Vlb::outside().title("Vellumar  [" + name_ + (modified_ ? " *" : "") + "]");
}

} // namespace Vapp
