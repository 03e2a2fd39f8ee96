// The index of keywords.
#pragma once

#include "conv/htm/page_writer.h"
#include "conv/set/index_lines.h"

namespace Index {

// With `simple`, links lead to the beginnings of
// pages.
void write(gPageWriter & writer, gSite const & site, gNavigation const & navigation,
           std::vector<gIndexKey> keys, bool simple);

} // namespace Index
