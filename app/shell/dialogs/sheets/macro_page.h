// Macros of C and C++ that hide what a declaration is.
#pragma once

#include "app/shell/dialogs/sheets/option_page.h"
#include "store/cmapobj.h"

class gDiaPreCppmacros : public gOptionPage {
public:
  gDiaPreCppmacros();

  bool exchange(bool store) override;
  void changed(gField & field) override;
  void pressed(gField & button) override;
  void key(gField & list, gListKey key) override;

private:
  gCppMacro * selected() const;
  void show();
  void check_action(gField & changed, gCppMacro & macro);
  void make_new();
  void remove();

  cRef<cMapObj> macros_ = make_ref<cMapObj>(); // names to records
  gField & names_;
  gField & new_;
  gField & delete_;
  gField & parameterized_;
  gField & action_;
  gField & interpretation_;
};
