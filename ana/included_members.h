// Members of a C++ class that stand in a file of their own, which the class takes in between its
// brackets.
#pragma once

#include "ana/read/read_modern.h"

// Makes members of that class of what the file at `path` declares, if it has been read.
void adopt_members(gPathstring const & path, gIncludeRequest const & request);
// The same with what the file says, before it is entered.
void adopt_members(gCodeFacts & code, gIncludeRequest const & request);
