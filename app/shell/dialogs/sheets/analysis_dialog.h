// Options of the analysis that belong to no sheet.
#pragma once

#include "app/shell/dialogs/dialog.h"

class gDiaAnaopt : public gDialog {
public:
  gDiaAnaopt();
};
