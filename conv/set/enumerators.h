// The values of an enumeration, as its declaration lists them.
#pragma once

#include <string>
#include <vector>

#include "conv/atc/document.h"

struct gEnumerator {
  std::string name;
  std::string value; // as it was written; empty if it wasn't
};

namespace Declaration {
// Of a unit that its reader has called an enumeration; none of others.
std::vector<gEnumerator> enumerators_of(gUnitRecord const & unit);
} // namespace Declaration
