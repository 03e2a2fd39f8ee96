// What a class or a method has to do with others, as further subentries of its text: for targets
// that are read from the first page to the last.
#pragma once

#include "conv/set/inheritance.h"
#include "conv/vlt/rules.h"

namespace RelationText {

// Puts the condition of the preprocessor in front, where the unit above hasn't got it.
// Appends which methods a method replaces and which replace it, the text that it takes over if it
// has none, and what a class inherits. Nothing is appended where there is nothing of the kind.
void set_into(gDocument const & document, gInheritance const & inheritance, gVltRules const & rules,
              int unit, gNodeList & body);

// Code, links and marks say nothing about what a thing does.
bool says_something(gNodeList const & body);
// The parts of a text that do.
gNodeList explanation(gUnitText const & text);

} // namespace RelationText
