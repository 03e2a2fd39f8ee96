// What happens to a project is told in app/options; a command only decides when.

#include "app/shell/project_handlers.h"

#include "app/shell/choosers.h"
#include "app/shell/facts.h"
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

int gOpenVLS::OnCommand() {
  gPathstring const chosen =
      Shell::choose_script(Vapp::option_string("vls_file"), Shell::project_or_program_folder());
  if (!chosen.empty() && chosen != Vapp::option_string("vls_file")) {
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
