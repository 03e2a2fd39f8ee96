// What a class is derived from.
#pragma once

#include "ana/anadat/gbaseclause.h"
#include "ana/anadat/gcodeelem.h"
#include "ana/anadat/gscopenames.h"

// The bases of a class with their access. Each is looked up from the scope of the class outwards,
// and has the whole name of what it means; an unknown one stays as it is written.
cRef<gBaseClause> bases_of(gCodeElem const & element, gScopeNames const & names);
