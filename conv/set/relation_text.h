// What a class or a method has to do with others, as further subentries of its text: for targets
// that are read from the first page to the last.
#pragma once

#include "conv/set/friends.h"
#include "conv/set/holdings.h"
#include "conv/set/inheritance.h"
#include "conv/vlt/rules.h"

// What things have to do with each other, for a whole document.
struct gBookRelations {
  explicit gBookRelations(gDocument const & document)
      : inheritance(document),
        friends(document),
        holdings(document) {}

  gInheritance const inheritance;
  gFriends const friends;
  gHoldings const holdings;
};

namespace RelationText {

// Puts the condition of the preprocessor in front, where the unit above hasn't got it.
// Appends which methods a method replaces and which replace it, the text that it takes over if it
// has none, what a class inherits and whom it lets in, what a namespace or a topic holds, and which
// topics a unit belongs to. Nothing is appended where there is nothing of the kind.
void set_into(gDocument const & document, gBookRelations const & relations, gVltRules const & rules,
              int unit, gNodeList & body);

// Code, links and marks say nothing about what a thing does.
bool says_something(gNodeList const & body);
// The parts of a text that do.
gNodeList explanation(gUnitText const & text);

} // namespace RelationText
