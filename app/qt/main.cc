// The program vellumar-gui: the windows over everything else.

#include <QApplication>
#include <csignal>
#include <iostream>

#include "app/options/settings.h"
#include "app/qt/main_window.h"
#include "app/qt/menu_style.h"
#include "app/shell/window/vapp.h"

int main(int argc, char ** argv) {
  // A write that fails is told in a box.
  std::signal(SIGPIPE, SIG_IGN);
  QApplication application(argc, argv);
  QApplication::setStyle(new gMenuStyle);
  QApplication::setApplicationName("vellumar-gui");
  QApplication::setApplicationDisplayName("Vellumar");
  QApplication::setDesktopFileName("vellumar");
  QApplication::setQuitOnLastWindowClosed(false);
  gUserDesktop desktop;
  gPathstring const help_map =
      gPathstring(Vapp::program_dir()).append("doc").append("htm").append("vellmr.map");
  gMainWindow window(desktop, help_map);
  gVapp program(window.frame(), window);
  if (!program.InitInstance(argc > 1 ? argv[1] : ""))
    return 1;
  int const status = program.Run([] { return QApplication::exec(); });
  if (!program.ExitInstance())
    std::cerr << "vellumar-gui: the settings could not be written" << std::endl;
  return status;
}
