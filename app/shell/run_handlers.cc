// The steps in front of a run happen here, on the main thread; the run itself is the worker's.

#include "app/shell/run_handlers.h"

#include <tuple>

#include "app/shell/facts.h"
#include "app/shell/run.h"
#include "app/shell/worker.h"
#include "vlb/outside.h"

gAnaStart::~gAnaStart() {
  if (started_)
    Shell::wait_for_worker();
}

// The worker writes down what it left in the folder before anyone else may use that.
void gAnaStart::end_folder() {
  folder_->record_contents();
  if (!keep_folder_)
    folder_.reset();
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
  show_msgwindow(true);
  started_ = true;
  gRunInput input = Vapp::run_input();
  if (facts_ && !Vapp::option({"ana", "facts_line"}))
    input.facts_line = true;
  std::tie(input.facts, input.facts_key) = read_ahead_;
  gRun::start(
      std::move(input), [this] { end_folder(); },
      [this](gRunResult const & result) {
        if (finished_)
          finished_(result.success);
      });
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
