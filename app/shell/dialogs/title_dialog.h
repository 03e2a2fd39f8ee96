// The title of the documentation.
#pragma once

#include "app/shell/dialogs/dialog.h"

class fDefineTitle : public gDialog {
public:
  fDefineTitle();
};
