// The values of an enumeration as a table with their numbers and texts.
#pragma once

#include "conv/atc/document.h"
#include "conv/vlt/rules.h"

namespace EnumTable {

// What the unit's text says about single values goes into the table, which takes the place of the
// list there or, without one, stands at the end. Nothing changes for units that have no values.
// `anchors`: each value is a bookmark with its name.
void set_into(gUnitRecord const & unit, gVltRules const & rules, bool anchors, gNodeList & body);

} // namespace EnumTable
