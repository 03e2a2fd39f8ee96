// What the converters to the target formats are told.
#pragma once

#include "app/shell/dialogs/dialog.h"

class gTargetSheet : public gDialog {
public:
  gTargetSheet();
};
