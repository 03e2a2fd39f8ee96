// What a tree needs beyond defaults and file, before anyone works with it.
#pragma once

#include <string>
#include <vector>

#include "store/cmapobj.h"

namespace Vapp {

// A subentry that a unit type was configured with and that no longer exists.
struct gDanglingSubentry {
  std::string unit_type;
  std::string subentry;

  // The text for the user.
  std::string text() const;
};

// Adds what is missing of `unitconfig` and of the source patterns, brings the optional source
// patterns in line with their options, and removes dangling subentries, which it returns.
std::vector<gDanglingSubentry> complete_options(cMapObj & options);

} // namespace Vapp
