// Source patterns and subentries.
#pragma once

#include "app/shell/dialogs/dialog.h"
#include "app/shell/dialogs/sheets/pattern_copy.h"
#include "store/csignal.h"

class gSpPage1;
class gSpPage2;
class gSpPage3;

class gPatternSheet : public gDialog {
public:
  gPatternSheet();

private:
  void show();
  void attributes_written();

  gPatternCopy copy_;
  gSpPage1 & definition_;
  gSpPage2 & properties_;
  gSpPage3 & subentries_;
  cSlot<gPatternSheet> attributes_slot_;
};
