// How a text unit of a source pattern begins, and the attributes that it gets.
#pragma once

#include "app/shell/dialogs/page.h"
#include "app/shell/dialogs/sheets/pattern_copy.h"

class gSpPage2 : public gPage {
public:
  explicit gSpPage2(gPatternCopy & copy);

  bool exchange(bool store) override;
  bool check() override;
  bool rule(gField & field) override;
  void changed(gField & field) override;
  void pressed(gField & button) override;
  void activated(gField & list, int column) override;
  // The copy was changed elsewhere.
  void show();
  // The attributes of the project were changed.
  void read_attributes();

private:
  cRef<cObj> record() const;
  void show_attributes();
  void store_fields();
  void check_separator();
  bool check_pattern(std::string const & name);
  int length() const;
  void assign();
  void unassign();

  gPatternCopy & copy_;
  gField & pattern_;
  gField & identifier_;
  gField & exists_;
  gField & length_;
  gField & separator_;
  gField & assigned_;
  gField & assign_;
  gField & unassign_;
  gField & attributes_;
  gField & values_;
};
