// Conditions of the preprocessor as texts: "defined(A) && B > 2".
#pragma once

#include "vlb/gstring.h"

// The condition under which one of two holds; null for none, which is also the answer where it
// would take too many words.
cRef<gString const> either_condition(cRef<gString const> const & a, cRef<gString const> const & b);
