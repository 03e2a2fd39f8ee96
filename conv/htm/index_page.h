// The index of keywords.
#pragma once

#include "conv/htm/htm_setter.h"
#include "conv/htm/page_writer.h"
#include "conv/set/index_lines.h"

namespace Index {

// The setter knows the anchors of the entries. With `simple`, links lead to the beginnings of
// pages.
void write(gPageWriter & writer, gSite const & site, gNavigation const & navigation,
           gHtmSetter const & setter, std::vector<gIndexKey> keys, bool simple);

} // namespace Index
