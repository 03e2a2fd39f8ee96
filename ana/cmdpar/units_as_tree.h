// Topics and pages below those that they are part of.
#pragma once

#include "ana/cmdpar/units_by_files.h"

struct gPlacedUnit {
  std::size_t unit = 0; // index
  std::size_t depth = 0;
};

// Each unit once, in the order of the document. What is part of several stands below the first of
// them, what is part of itself on the way stands at the top.
std::vector<gPlacedUnit> units_as_tree(gUnitRefs const & units);
