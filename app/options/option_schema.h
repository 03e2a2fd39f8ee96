// Which keys the project tree can have, and the type of each.
#pragma once

#include <string>
#include <vector>

#include "store/cmapobj.h"

namespace Vapp {

// A tree of examples: each value has the type of its key. The entry "*" of a map stands for all
// keys that a user may add; the first element of a vector for all of its elements.
cRef<cMapObj> option_schema();

// The example for a path of keys; null for keys that can't exist.
cRef<cObj> schema_at(cObj const & schema, std::vector<std::string> const & path);

// Gives records that lack some of their fields the values of new records.
void fill_records(cMapObj & options);

} // namespace Vapp
