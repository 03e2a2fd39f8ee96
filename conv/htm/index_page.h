// The index of keywords.
#pragma once

#include "conv/htm/htm_setter.h"
#include "conv/htm/page_writer.h"

// An entry, ready to be sorted.
struct gIndexLine {
  std::string key;    // plain text
  std::string sort;   // lower case, from its first letter or digit on; signs come first
  std::string phrase; // plain text; empty for an entry that is its key alone
  int unit = -1;
  std::string_view anchor; // on the page of the unit; empty if the unit itself is the place
};

namespace Index {

// The phrase that an entry makes of its texts and keys: all in their order, where the place holder
// in a text stands for the key. Empty if there is nothing but the key.
std::string phrase_of(gIndexEntry const & entry, std::string_view place_holder);

// All entries in the order of the index; an entry that is there twice comes once.
std::vector<gIndexLine> lines_of(gDocument const & document, gHtmSetter const & setter,
                                 std::string_view place_holder);

// With `simple`, links lead to the beginnings of pages.
void write(gPageWriter & writer, gSite const & site, gNavigation const & navigation,
           std::vector<gIndexLine> const & lines, bool simple);

} // namespace Index
