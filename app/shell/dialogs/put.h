// Writing into the options only what differs.
#pragma once

#include "store/cmapobj.h"

namespace Shell {

// Stores the value under the key unless an equal one of the same type stands there. Answers whether
// it was stored.
bool put(cMapObj & tree, std::string_view key, cRef<cObj> const & value);

} // namespace Shell
