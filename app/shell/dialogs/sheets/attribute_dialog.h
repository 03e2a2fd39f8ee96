// Attributes of text units and their values.
#pragma once

#include "app/shell/dialogs/dialog.h"

class gDefineAttr : public gDialog {
public:
  gDefineAttr();

private:
  void stored(bool written) override;
};
