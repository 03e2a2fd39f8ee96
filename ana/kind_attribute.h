// The attribute KIND: what a unit's declaration is, finer than its type.
#pragma once

struct gRunInput;

// Adds the attribute with a value for each kind that the tolerant readers know, unless the project
// has an attribute of that name: then that one keeps its meaning.
void add_kind_attribute(gRunInput & input);
