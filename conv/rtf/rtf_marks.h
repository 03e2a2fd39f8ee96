// Marks that stand between the blocks of a text.
#pragma once

#include "conv/atc/node.h"

namespace Rtf {

// Moves bookmarks and index entries between blocks into the next paragraph, headline or item:
// outside of a paragraph they would begin one of their own, with the look of the one before. Where
// no paragraph follows, an empty one holds them.
void sink_marks(gNodeList & blocks);

} // namespace Rtf
