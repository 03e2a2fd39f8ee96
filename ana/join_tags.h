// Structures of C by the names that users write: of "typedef struct _T T;" that is T.
#pragma once

#include <vector>

#include "ana/anadat/gcodeelem.h"

// The tag that a typedef gives another name: "T" of "typedef struct T U"; empty where it says more,
// such as a pointer.
std::string_view named_tag(gCodeElem const & type);

// Gives a structure, and what stands in it, the name that a typedef gives it, where the tag is only
// a form of that name and nothing else has it.
void name_tags(std::vector<gCodeElem *> const & elements);
