// The steps in front of a run happen here, on the main thread; the run itself is the worker's.

#include "app/shell/run_handlers.h"

#include "ana/ana_thread.h"
#include "app/shell/facts.h"
#include "app/shell/worker.h"
#include "vlb/outside.h"

gAnaStart::~gAnaStart() {
  if (started_)
    Shell::wait_for_worker();
}

void gAnaStart::run(void * self) {
  auto & start = *static_cast<gAnaStart *>(self);
  ana_thread();
  start.folder_->record_contents();
  if (!start.keep_folder_)
    start.folder_.reset();
}

int gAnaStart::OnCommand() {
  // The last run may still be writing its record.
  Shell::wait_for_worker();
  folder_.reset();
  if (!ana_check_project())
    return 1;
  folder_ = ana_prepare_folder(overwrite_);
  if (!folder_)
    return 1;
  Vapp::user_break = false;
  show_msgwindow(true);
  started_ = true;
  Shell::start_worker(run, this);
  return 1;
}

int gAnaStart::OnUpdateCommand() {
  return Shell::project_open() && Shell::idle();
}

int gAnaBreakHandler::OnCommand() {
  Vapp::user_break = true;
  return 1;
}

int gAnaBreakHandler::OnUpdateCommand() {
  return Vapp::ana_active && !Vapp::user_break;
}
