// Which reports are shown, and when there are too many.
#pragma once

#include "app/shell/dialogs/dialog.h"

class gDiaMsgoptions : public gDialog {
public:
  gDiaMsgoptions();

private:
  void stored(bool written) override;
};
