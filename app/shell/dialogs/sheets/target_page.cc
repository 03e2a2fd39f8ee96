// A path that the user types until it is that of the shipped file means the shipped file, wherever
// the program lies next time.
#include "app/shell/dialogs/sheets/target_page.h"

#include "app/options/options.h"
#include "app/options/text_rules.h"
#include "vlb/gfilesystem.h"
#include "vlb/outside.h"

using namespace Vapp;

void gTargetPage::File::enable() {
  path.enabled = choose.enabled = !use_default.checked;
}

void gTargetPage::file(gTextName name, gFlagName use_default, char const * title,
                       char const * filter) {
  gField & path = field_of(name.row());
  gField & button_of_path = button(path.id + ">>", ">>", gField::Place::beside);
  button_of_path.chooser_of = path.id;
  button_of_path.tool_tip = title;
  gField & flag = field_of(use_default.row());
  flag.place = gField::Place::beside;
  files_.push_back({name.row(), path, flag, button_of_path, title, filter});
}

bool gTargetPage::exchange(bool store) {
  bool const written = gOptionPage::exchange(store);
  for (File & file : files_)
    file.enable();
  return written;
}

void gTargetPage::changed(gField & field) {
  for (File & file : files_) {
    std::string const standard = cat::as_string(default_of(file.row));
    if (&field == &file.path && Vlb::compare_i(field.text, standard) == 0)
      file.use_default.checked = true;
    file.enable();
  }
}

bool gTargetPage::rule(gField & field) {
  for (File & file : files_)
    if (&field == &file.path)
      return check_file(file);
  return gOptionPage::rule(field);
}

bool gTargetPage::check_file(File & file) {
  if (file.use_default.checked)
    return true;
  std::string path = file.path.text;
  make_absolute_vlp(path);
  if (file.is_folder() ? gFileSystem::dir_exists(path) : gFileSystem::file_exists(path))
    return true;
  return refuse(file.path, fill_text(file.is_folder() ? "Folder '%s' does not exist."
                                                      : "File '%s' does not exist.",
                                     {path}));
}

void gTargetPage::pressed(gField & button) {
  for (File & file : files_)
    if (&button == &file.choose)
      choose(file);
}

void gTargetPage::choose(File & file) {
  std::string path = file.path.text;
  make_absolute_vlp(path);
  gOutside::Choice choice{gOutside::Choice::Kind::open, file.title, file.filter,
                          gPathstring(path).dir_name()};
  if (file.is_folder()) {
    choice.kind = gOutside::Choice::Kind::folder;
    choice.dir = path;
  }
  gString const chosen = Vlb::outside().choose_one(choice);
  if (chosen.empty()) {
    check_file(file);
    return;
  }
  file.path.text = chosen;
  changed(file.path);
  touch();
}
