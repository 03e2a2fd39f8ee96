// What one of two elements that are one thing takes from the other.
#pragma once

#include "ana/anadat/gcodeelem.h"

// Tells that something exists, and leaves it to another place to define it.
bool announces(gCodeElem const & element);

// Topics, conditions and the definitions of macros; not the text.
void merge_elements(gCodeElem & kept, gCodeElem const & gone);

// From now on its declaration reads like the other one.
void take_shape(gCodeElem & kept, gCodeElem const & like);
