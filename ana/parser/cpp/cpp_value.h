// The values of tokens and grammar symbols of C/C++.
#pragma once

#include "ana/anadat/gbaseclause.h"
#include "ana/parser/cpp/cpp_decl.h"
#include "vlb/parse/value.h"

using gCppElemRef = cRef<gCppDeclElem>;
using gCppDcltorRef = cRef<gCppDcltor>;
using gBasesRef = cRef<gBaseClause>;

using cpp_value =
    gValue<gString, int, gStrList, gCppElemRef, gCppDcltorRef, gCppDecl, gBaseEntry, gBasesRef>;
