// What a text says, if it is short enough for a row of a list.
#pragma once

#include <optional>

#include "conv/atc/document.h"

namespace RowWords {

// One paragraph, or nothing where the text says nothing; none if it says more than a row has room
// for, or something that needs a place of its own.
std::optional<gNodeList> of(gUnitText const & text);

} // namespace RowWords
