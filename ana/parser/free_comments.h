// Comments that no text unit came from: the association looks for a declaration near them.
#pragma once

#include "ana/anadat/tables.h"

// Enters such comments of one file after another in gComments.
class gFreeComments {
public:
  void reset() { units_known_ = false; }

  // A comment of `file` from its first to its last line.
  void record(gSrcFile const & file, int first_line, int last_line) {
    if (!units_known_)
      find_units(file);
    for (Units const * units : {named_units_, unnamed_units_})
      if (units && units->has_in({first_line}, {last_line + 1}))
        return;
    gComments.insert_at({file, first_line}, make_ref<gCmt>(file, first_line, last_line));
  }

private:
  using Units = gFileObjTable<cRef<gDocUnit>>::Map;

  void find_units(gSrcFile const & file) {
    units_known_ = true;
    named_units_ = gNamedUnits.map_of(file);
    unnamed_units_ = gUnnamedUnits.map_of(file);
  }

  // The text units of the file, looked up at its first comment.
  bool units_known_ = false;
  Units const * named_units_ = nullptr;
  Units const * unnamed_units_ = nullptr;
};
