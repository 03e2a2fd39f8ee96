// A macro that has a definition in several branches of the preprocessor.
#pragma once

#include "conv/atc/document.h"
#include "conv/vlt/rules.h"

namespace MacroVariants {

// Behind the declaration comes a table of all definitions, with the conditions that they depend on.
// Nothing changes for other units.
void set_into(gUnitRecord const & unit, gVltRules const & rules, gNodeList & body);

} // namespace MacroVariants
