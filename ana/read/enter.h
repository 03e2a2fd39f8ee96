// The one step from the facts of files to the tables of a run. The files come in the order of the
// input list, the text units of all of them first: that gives the same numbers, labels and winners
// among equal names, wherever and in whatever order the files were read.
#pragma once

#include "ana/anadat/gfilefacts.h"

// Those names of the facts that files entered before have taken. A file that has any must be read
// again with them: what a refused name leaves in its text depends on where it stands.
gTakenNames names_taken(gTextFacts const & facts);

// Fills gNamedUnits, gUnnamedUnits, gUnitNames, gBookmarks and gCitations, and ties units to the
// code elements that name them. Of the text's facts the lines of the units and how it ended are
// left.
void enter_text(gFileFacts & facts);

// Fills gCodeElems, gComments and the class tables. The lists of the facts are empty then.
void enter_code(gFileFacts & facts);
