// A new project: its file, script, output folder and input files.
#pragma once

#include "app/shell/dialogs/dialog.h"

class gDefineNewvlp : public gDialog {
public:
  gDefineNewvlp();

protected:
  // Makes the project; false if the user wants to keep the one before.
  bool confirm(bool apply) override;

private:
  class Page;
  Page * page_;
};
