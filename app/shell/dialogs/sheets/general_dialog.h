// What belongs to the user and no project.
#pragma once

#include "app/shell/dialogs/dialog.h"

class gDiaExtraOpt : public gDialog {
public:
  gDiaExtraOpt();

private:
  void stored(bool written) override;
};
