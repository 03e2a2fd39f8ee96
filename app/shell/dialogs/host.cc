// The host in use.

#include "app/shell/dialogs/host.h"

namespace {

class NoHost : public gDialogHost {
public:
  bool show(gDialog &) override { return false; }
  void open(std::unique_ptr<gDialog>, std::function<void()> closed) override {
    if (closed)
      closed();
  }
};

// Null stands for none.
gDialogHost * host_in_use = nullptr;

} // namespace

namespace Shell {

gDialogHost & dialog_host() {
  static NoHost none;
  return host_in_use ? *host_in_use : none;
}

gDialogHost * set_dialog_host(gDialogHost * host) {
  gDialogHost * const before = host_in_use;
  host_in_use = host;
  return before;
}

} // namespace Shell
