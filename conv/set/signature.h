// The types of a routine, without the names of its parameters and their defaults: what a search by
// signature compares.
#pragma once

#include <string>
#include <vector>

#include "conv/atc/document.h"

struct gSignature {
  bool is_routine = false;
  std::vector<std::string> parameters; // types, with one blank between words and none elsewhere
  std::string result;
};

namespace Declaration {
// Only of a unit whose reader has told where the parameters are; of others it is no routine.
gSignature signature_of(gUnitRecord const & unit);
} // namespace Declaration
