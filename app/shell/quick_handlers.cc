// The project stays open behind the run, so that it can be saved and refined like any other.

#include "app/shell/quick_handlers.h"

#include <cstdlib>

#include <unistd.h>

#include "app/shell/facts.h"
#include "app/shell/run.h"
#include "app/shell/worker.h"
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

gVlpQuick::~gVlpQuick() {
  start_.set_finished({});
  Shell::wait_for_worker();
}

// Null, after a box, if there is nothing to document.
std::unique_ptr<gQuickProject> gVlpQuick::find(gPathstring const & folder) {
  notes_.clear();
  auto const keep = [this](std::string const & text) { notes_.push_back(text); };
  std::vector<gQuickProject::Source> const sources = {{folder, folder}};
  gPathstring const out = gPathstring(work_folder(folder)).append("site");
  auto quick =
      std::make_unique<gQuickProject>(sources, out, "", gQuickProject::Listener{refuse, keep});
  std::string const extensions = quick->extensions();
  gWaitCursor const wait;
  return !extensions.empty() && quick->find_sources(extensions) ? std::move(quick) : nullptr;
}

int gVlpQuick::OnCommand() {
  gPathstring const folder = Vlb::outside().choose_folder("Document a Folder", "");
  std::unique_ptr<gQuickProject> quick = folder.empty() ? nullptr : find(folder);
  if (!quick)
    return 1;
  gPathstring const file = gPathstring(work_folder(folder)).append(quick->title() + ".vlp");
  if (!Vapp::project().begin_from(gQuickProject::file(), file))
    return 1;
  quick->fill_project();
  quick_ = std::move(quick);
  for (std::string const & text : notes_)
    note(text);
  start_.set_overwrite(gOverwrite::ask_foreign);
  start_.set_finished([this](bool success) { convert(success); });
  driver_.set_finished([this](gConversionResult const & result) { tell(result); });
  return start_.OnCommand();
}

int gVlpQuick::OnUpdateCommand() {
  return Shell::idle();
}

void gVlpQuick::convert(bool success) {
  // A stop that came when the analysis was done already is one for what follows it, too.
  if (success && Vapp::user_break)
    note("User aborted program.");
  else if (success && driver_.OnUpdateCommand())
    driver_.OnCommand();
}

void gVlpQuick::tell(gConversionResult const & result) {
  if (result.success)
    Msg::log() << quick_->summary() << std::flush;
}

// The sources of a help file are nothing to look at, but they are to be found.
int gOpenResult::OnCommand() {
  gPathstring start = gConversionRun::last_result().start;
  if (start.extension() == "hpj")
    start = start.dir_name();
  if (!Vlb::outside().open_file(start))
    refuse("The result cannot be shown, since no program for it could be started:\n" + start);
  return 1;
}

// The result of another project isn't that of this one.
int gOpenResult::OnUpdateCommand() {
  gConversionResult const & result = gConversionRun::last_result();
  return Shell::project_open() && Shell::idle() && result.success && !result.start.empty() &&
         result.start.starts_with(Vapp::option_path("out_dir"));
}
