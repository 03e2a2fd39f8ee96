// What the kinds of declarations are for the tables of a run.
#pragma once

#include "ana/anadat/gcodeelem.h"

// One gUnitType; ut_undefined for what makes no unit.
int unit_type_of(Decl::gKind kind, bool in_class);
// A class, structure, record and the like: what stands in it are members.
bool is_class_like(Decl::gKind kind);
// "public" and so on; "undefined" outside of classes.
char const * visibility_of(Decl::gAccess access);
// A union of gSpecifier for one of Decl::gMark.
int specifiers_of(std::uint32_t marks);
