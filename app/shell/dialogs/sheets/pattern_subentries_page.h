// Which subentries the text units of a type have, and how each is filled.
#pragma once

#include "app/shell/dialogs/page.h"
#include "app/shell/dialogs/sheets/pattern_copy.h"

class gSpPage3 : public gPage {
public:
  explicit gSpPage3(gPatternCopy & copy);

  bool exchange(bool store) override;
  void changed(gField & field) override;
  void pressed(gField & button) override;
  void activated(gField & list, int column) override;
  void key(gField & list, gListKey key) override;
  // The copy was changed elsewhere.
  void show();

private:
  void toggle(Vapp::gConfigDigit digit);
  void permit();
  void forbid();

  gPatternCopy & copy_;
  gField & unit_type_;
  gField & permitted_;
  gField & add_;
  gField & remove_;
  gField & subentries_;
};
