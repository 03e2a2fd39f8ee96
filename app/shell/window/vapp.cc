// The order matters: what a later step shows needs the settings and the window of the earlier ones.

#include "app/shell/window/vapp.h"

#include <optional>

#include "app/options/defaults.h"
#include "app/options/options.h"
#include "app/options/project.h"
#include "app/options/settings.h"
#include "app/shell/signals.h"
#include "store/cerr.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"

namespace {

void exception_box(std::string const & text) {
  Vlb::outside().box("Unbehandelte C++-Ausnahme\nProgramm wird beendet\n" + text,
                     gOutside::Icon::stop);
}

} // namespace

gPathstring gVapp::help_map() {
  gPathstring path = Vapp::program_dir();
  return path.append("doc").append("htm").append("vellmr.map");
}

bool gVapp::InitInstance(std::string const & file) {
  std::string reason;
  Vapp::build_ini_defaults(Vapp::options_ini);
  bool const settings_read = Vapp::load_settings(&reason);
  if (!view_.create())
    return false;
  frame_.load_menu();
  view_.set_place(Shell::start_place(view_.screens()));
  view_.show();
  if (!settings_read)
    Vlb::outside().box("The settings are damaged:\n" + reason +
                           "\n\nThe standard settings are used. The file is kept as "
                           "'vellumar.ini.bad'.",
                       gOutside::Icon::exclamation);
  sig_inittemplates()();
  open_first(file);
  return true;
}

// A file that is no project doesn't keep the last project from coming back.
void gVapp::open_first(std::string const & file) {
  if (!file.empty()) {
    gPathstring path(file);
    path.make_absolute(gFileSystem::get_curdir());
    frame_.drop_files({path}, {0, 0});
  }
  cFunctionSlot<std::function<void()>> const start(
      [] { Vapp::project().start(Vapp::project().is_open()); });
  sig_init().connect(start);
  sig_init()();
  frame_.idle();
}

int gVapp::Run(std::function<int()> const & loop) {
  try {
    return loop();
  } catch (std::exception const & fault) {
    exception_box(fault.what());
  } catch (cException const & fault) {
    exception_box(fault.as_string());
  } catch (char const * text) {
    exception_box(text);
  } catch (...) {
    exception_box("");
  }
  return 1;
}

bool gVapp::ExitInstance() {
  return Vapp::save_settings();
}
