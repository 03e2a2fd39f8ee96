// The project stays open behind the run, so that it can be saved and refined like any other.

#include "app/shell/quick_handlers.h"

#include <cstdlib>

#include <unistd.h>

#include "app/shell/facts.h"
#include "app/shell/file_url.h"
#include "app/shell/quick_project.h"
#include "app/shell/run.h"
#include "vlb/gmsghandler.h"
#include "vlb/outside.h"

namespace {

void refuse(std::string const & text) {
  Vlb::outside().box(text, gOutside::Icon::exclamation);
}

void note(std::string const & text) {
  Msg::log() << text << std::endl;
}

// Where results go: beside the sources, or into the home folder where that can't be written.
gPathstring work_folder(gPathstring const & sources) {
  char const * const home = std::getenv("HOME");
  return ::access(sources.c_str(), W_OK) == 0 || !home ? sources : gPathstring(home);
}

} // namespace

int gVlpQuick::OnCommand() {
  gPathstring const folder = Vlb::outside().choose_folder("Document a Folder", "");
  if (folder.empty())
    return 1;
  gPathstring const base = work_folder(folder);
  gPathstring const out = gPathstring(base).append("site");
  gQuickProject quick({{folder, folder}}, out, "", {refuse, note});
  std::string const extensions = quick.extensions();
  gWaitCursor const wait;
  if (extensions.empty() || !quick.find_sources(extensions))
    return 1;
  gPathstring const project = gPathstring(base).append(quick.title() + ".vlp");
  if (!Vapp::project().begin_from(gQuickProject::file(), project))
    return 1;
  quick.fill_project();
  start_.set_overwrite(gOverwrite::ask_foreign);
  start_.set_finished([this](bool success) { convert(success); });
  return start_.OnCommand();
}

int gVlpQuick::OnUpdateCommand() {
  return Shell::idle();
}

void gVlpQuick::convert(bool success) {
  if (!success)
    return;
  driver_ = make_handler("gOutHTML");
  if (driver_->OnUpdateCommand())
    driver_->OnCommand();
}

int gOpenResult::OnCommand() {
  gPathstring const & start = gConversionRun::last_result().start;
  if (!Vlb::outside().open_url(Shell::file_url(start)))
    refuse("The result cannot be shown, since no program for it could be started:\n" + start);
  return 1;
}

// The result of another project isn't that of this one.
int gOpenResult::OnUpdateCommand() {
  gConversionResult const & result = gConversionRun::last_result();
  return Shell::project_open() && Shell::idle() && result.success && !result.start.empty() &&
         result.start.starts_with(Vapp::option_path("out_dir"));
}
