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

// Names of one type in Pascal, "A, B: Integer", are one parameter here.
struct gParameter {
  gStretch place; // of the declaration, without white space at its ends
  std::string type;
};

namespace Declaration {
// Only of a unit whose reader has told where the parameters are; of others it is no routine.
gSignature signature_of(gUnitRecord const & unit);
// The parameters as they are written; none of what is no routine, or whose places aren't known.
std::vector<gParameter> parameters_of(gUnitRecord const & unit);
} // namespace Declaration
