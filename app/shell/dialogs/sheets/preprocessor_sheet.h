// What is done to sources before their comments are read.
#pragma once

#include "app/shell/dialogs/dialog.h"

class gPreprocessorSheet : public gDialog {
public:
  gPreprocessorSheet();
};
