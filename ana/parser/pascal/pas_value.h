// The values of tokens and grammar symbols of Pascal.
#pragma once

#include "ana/anadat/gbaseclause.h"
#include "ana/anadat/gcodeelem.h"
#include "vlb/parse/value.h"

using gBasesRef = cRef<gBaseClause>;
using gCodeElemRef = cRef<gCodeElem>;

using pas_value = gValue<gString, int, gStrList, gBasesRef, gCodeElemRef>;
