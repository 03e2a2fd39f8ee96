// Map files for context-sensitive help: the one that is generated, and those that are included.
#pragma once

#include "app/shell/dialogs/dialog.h"

class gDiaHM : public gDialog {
public:
  gDiaHM();

protected:
  bool confirm(bool apply) override;
  void stored(bool written) override;

private:
  class Page;
  Page * page_;
};
