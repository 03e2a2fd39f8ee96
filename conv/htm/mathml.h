// Formulas as MathML, which browsers show without a script.
#pragma once

#include "conv/set/formula.h"

namespace Html {
// What stands within "math".
std::string mathml(gFormula const & formula);
} // namespace Html
