// Shows the dialogs of the program as windows.
#pragma once

#include <functional>
#include <vector>

#include "app/shell/dialogs/host.h"

class gDialogWindow;
class QWidget;

// The host in use as long as it lives.
class gQtDialogHost : public gDialogHost {
public:
  // Modeless dialogs belong to the main window, which has to outlive this.
  explicit gQtDialogHost(QWidget & main_window);
  ~gQtDialogHost() override;

  // Shows the help of a page.
  std::function<void(int context)> on_help;

  bool show(gDialog & dialog) override;
  void open(std::unique_ptr<gDialog> dialog, std::function<void()> closed) override;
  // Cancels the modeless ones.
  void close_all();

private:
  struct Open;
  void help_by(gDialogWindow & window);
  void remove(Open * open);

  QWidget & main_window_;
  gDialogHost * before_;
  std::vector<std::unique_ptr<Open>> open_;
};
