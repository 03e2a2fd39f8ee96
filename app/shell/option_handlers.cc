// What a worker reads must not change under it: each rule keeps a dialog shut while its options are
// in use.

#include "app/shell/option_handlers.h"

#include <cstdio>

#include "app/shell/facts.h"
#include "vlb/outside.h"

bool gDialogHandler::OnDialog() {
  return Vlb::outside().dialog(dialog_);
}

int gDialogHandler::OnCommand() {
  OnDialog();
  return 1;
}

// The window may be gone before the call returns.
bool gModelessHandler::OnDialog() {
  *open_ = true;
  bool const shown = Vlb::outside().dialog(
      gOutside::Dialog{dialog(), page_, true, [open = open_] { *open = false; }});
  *open_ = *open_ && shown;
  return shown;
}

void gModelessHandler::OnGetParam() {
  if (std::sscanf(GetParameters().c_str(), "%d", &page_) != 1 || page_ < 0)
    page_ = 0;
}

int gAnaSheetHandler::OnUpdateCommand() {
  return Shell::project_open() && !Vapp::ana_active && !is_open();
}

int gDefSrc::OnUpdateCommand() {
  return Shell::project_open() && !is_open();
}

int gDefAttr::OnUpdateCommand() {
  return Shell::project_open() && !is_open();
}

int gDefOutdir::OnUpdateCommand() {
  return Shell::project_open() && Shell::idle();
}

// The title is the project's.
int fDefTitle::OnUpdateCommand() {
  return Shell::project_open();
}

int gMsgOptions::OnUpdateCommand() {
  return Shell::project_open();
}

int gOutOptions::OnUpdateCommand() {
  return Shell::project_open() && Shell::idle() && !is_open();
}

int gOutHM::OnUpdateCommand() {
  return Shell::project_open() && !Vapp::output_active;
}
