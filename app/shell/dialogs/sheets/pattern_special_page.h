// Comments and subentries in the way of other documentation systems.
#pragma once

#include <functional>

#include "app/shell/dialogs/sheets/option_page.h"
#include "app/shell/dialogs/sheets/pattern_copy.h"

class gSpPageSpecial : public gOptionPage {
public:
  // `show` is called when the copy has changed, for the pages that show it.
  gSpPageSpecial(gPatternCopy & copy, std::function<void()> show);

  bool exchange(bool store) override;
  void pressed(gField & button) override;

private:
  void add_set(Vapp::gSubentrySet set);

  gPatternCopy & copy_;
  std::function<void()> show_;
};
