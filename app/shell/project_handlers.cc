// What happens to a project is told in app/options; a command only decides when.

#include "app/shell/project_handlers.h"

#include "app/shell/facts.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"
#include "vlb/outside.h"

bool gVlpNew::OnDialog() {
  return Vlb::outside().dialog("gDefineNewvlp");
}
int gVlpNew::OnCommand() {
  OnDialog();
  return 1;
}
int gVlpNew::OnUpdateCommand() {
  return Shell::idle();
}

int gVlpOpen::OnCommand() {
  Vapp::project().open();
  return 1;
}
int gVlpOpen::OnUpdateCommand() {
  return Shell::idle();
}
int gVlpOpen::OnDropFile(char const * path, cPointT2<int> const &) {
  gPathstring const dropped(path);
  if (dropped.extension() != "vlp")
    return 0;
  if (OnValidate())
    Vapp::project().open_file(dropped);
  return 1;
}

int gVlpSave::OnCommand() {
  Vapp::project().save();
  return 1;
}
int gVlpSave::OnUpdateCommand() {
  return Shell::project_open();
}

int gVlpSaveAs::OnCommand() {
  Vapp::project().save_as();
  return 1;
}
int gVlpSaveAs::OnUpdateCommand() {
  return Shell::project_open() && Shell::idle();
}

namespace {

// Where the chooser begins: beside the present script, else in the project's folder.
gString script_folder() {
  if (!Vapp::option_string("vls_file").empty())
    return Vapp::option_path("vls_file").dir_name();
  std::string folder;
  return Vapp::make_absolute_vlp(folder);
}

bool can_read(gPathstring const & script) {
  std::string text;
  bool const read = gFileSystem::read_file(script, text);
  if (!read)
    Msg::log(Msg::script_unreadable, script);
  return read;
}

} // namespace

int gOpenVLS::OnCommand() {
  gPathstring const chosen = Vlb::outside().choose_open(
      "Choose Vellumar Script", "Vellumar Script (*.vls)|*.vls|All Files (*.*)|*.*||",
      script_folder());
  if (!chosen.empty() && can_read(chosen) && chosen != Vapp::option_string("vls_file")) {
    Vapp::options["vls_file"] = cat::make(chosen);
    Vapp::project().mark_modified();
  }
  return 1;
}
int gOpenVLS::OnUpdateCommand() {
  return Shell::project_open();
}

bool gVappHelp::OnDialog() {
  return Vlb::outside().dialog("gVappHelp");
}
int gVappHelp::OnCommand() {
  OnDialog();
  return 1;
}
