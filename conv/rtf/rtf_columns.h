// Where the columns of a table end.
#pragma once

#include <vector>

#include "conv/set/table_shape.h"

namespace Rtf {

// In twips from the margin of the text, for a table that begins at `left` and ends at `right` at
// the latest: parts of this space, lengths, and equal shares of the rest for "*" and for columns
// without a width. What is too wide is made narrower together.
std::vector<int> column_ends(gTableShape const & shape, int left, int right);

} // namespace Rtf
