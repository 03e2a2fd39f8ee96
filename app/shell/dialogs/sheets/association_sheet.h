// How text units and code elements find each other.
#pragma once

#include "app/shell/dialogs/dialog.h"

class gAssociationSheet : public gDialog {
public:
  gAssociationSheet();
};
