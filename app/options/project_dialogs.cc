// The steps of a project's life that ask the user: saving, opening, beginning a new one.
#include <filesystem>
#include <ostream>

#include <unistd.h>

#include "app/options/attributes.h"
#include "app/options/comment_subentries.h"
#include "app/options/defaults.h"
#include "app/options/options.h"
#include "app/options/project.h"
#include "app/options/text_rules.h"
#include "store/gglobalobj.h"
#include "store/text_form.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/outside.h"

namespace Vapp {

namespace {

char const * const filter = "Vellumar Project (*.vlp)|*.vlp|All files (*.*)|*.*||";

// A file that nobody may write counts too: replacing it by a rename would get around the mark.
bool is_readonly(gPathstring const & path) {
  using std::filesystem::perms;
  std::error_code error;
  perms const rights = std::filesystem::status(path.c_str(), error).permissions();
  perms const writers = perms::owner_write | perms::group_write | perms::others_write;
  return (rights & writers) == perms::none || ::access(path.c_str(), W_OK) != 0;
}

// True, after a box, if the file exists and can't be written.
bool readonly_error(gPathstring const & path, char const * text) {
  if (!gFileSystem::file_exists(path) || !is_readonly(path))
    return false;
  Vlb::outside().box(fill_text(text, {path}), gOutside::Icon::stop);
  return true;
}

bool write(gPathstring const & path) {
  if (readonly_error(path, "Cannot write\nFile '%s' is read-only"))
    return false;
  cMapObj stored;
  stored.assign(options);
  drop_values(stored);
  drop_default_paths(stored);
  bool const good = write2file(stored, path.c_str(), true);
  if (!good)
    Vlb::outside().box("Could not write the project file.", gOutside::Icon::stop);
  return good;
}

// The reason is for the message window, as a file with a slip may be mended by hand.
void load_failed_box(gString const & path) {
  if (!project().load_error().empty())
    Msg::log() << project().load_error() << std::endl;
  Vlb::outside().box(
      fill_text("Fatal error reading project file '%s'.\nPlease choose a different project file.",
                {path}),
      gOutside::Icon::stop);
}

} // namespace

bool gProject::write_protected() const {
  return gFileSystem::file_exists(file_) && is_readonly(file_);
}

bool gProject::save() {
  if (file_.empty())
    return save_as();
  options.sort_by_key();
  bool const good = write(file_);
  if (good)
    modified_ = false;
  rebuild_values(options);
  return good;
}

gPathstring gProject::choose(bool save) const {
  gString folder;
  cat::read(options_ini.at("vlp_dir"), folder);
  if (save)
    return Vlb::outside().choose_one({.kind = gOutside::Choice::Kind::save,
                                      .title = fill_text("Save project '%s'", {name_}),
                                      .filter = filter,
                                      .dir = folder,
                                      .name = name_,
                                      .ext = "vlp"});
  return Vlb::outside().choose_open("Open Project", filter, folder);
}

bool gProject::save_as() {
  gPathstring const chosen = choose(true);
  if (chosen.empty())
    return false;
  set_project_name(chosen);
  bool const good = save();
  refresh_title();
  return good;
}

bool gProject::ask_to_save(bool may_cancel) {
  bool go_on = true;
  sig_leaving(go_on);
  // A tree of defaults that never got a name is nobody's work.
  if (!go_on || !modified_ || !is_open())
    return go_on;
  gOutside::Question question{fill_text("Save changes in project '%s'?", {name_})};
  question.cancel = may_cancel;
  switch (Vlb::outside().ask(question)) {
  case gOutside::Answer::yes:
    return save();
  case gOutside::Answer::no:
    return true;
  case gOutside::Answer::cancel:
    break;
  }
  return !may_cancel;
}

bool gProject::open() {
  if (!ask_to_save())
    return false;
  for (;;) {
    gPathstring const chosen = choose(false);
    if (chosen.empty())
      return false;
    if (load(chosen))
      return true;
    load_failed_box(chosen);
  }
}

bool gProject::open_file(gPathstring const & path) {
  if (!ask_to_save())
    return false;
  if (load(path))
    return true;
  load_failed_box(path);
  return open();
}

bool gProject::create(gNewProject const & fields) {
  if (!ask_to_save())
    return false;
  load_defaults();
  choose_modern(options);
  set_project_name(fields.path);
  options["inputcurdir"] = cat::make(fields.root);
  if (fields.groups)
    options.submap("inputfiles").assign(*fields.groups);
  if (!fields.out_dir.empty())
    options["out_dir"] = cat::make(fields.out_dir);
  if (!fields.vls_file.empty())
    options["vls_file"] = cat::make(fields.vls_file);
  refresh_title();
  clear_msgwindow();
  mark_modified();
  return true;
}

// Paths of the file are relative to where it lies.
bool gProject::begin_from(gPathstring const & file, gPathstring const & path) {
  if (!ask_to_save())
    return false;
  if (!load(file, false)) {
    load_failed_box(file);
    return false;
  }
  options["vls_file"] = cat::make(option_path("vls_file"));
  set_project_name(path);
  file_.clear();
  options_ini["vlp_file"] = cat::make("");
  clear_msgwindow();
  mark_modified();
  return true;
}

void gProject::start(bool project_named) {
  Global::objects().init_all();
  bool last = false;
  gString file;
  cat::read(options_ini.at("vlp_last"), last);
  cat::read(options_ini.at("vlp_file"), file);
  if (!project_named && last && !file.empty() && !load(file)) {
    load_failed_box(file);
    open();
  }
  refresh_title();
}

} // namespace Vapp
