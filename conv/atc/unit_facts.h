// What is known of a unit before its text is set.
#pragma once

#include "conv/atc/document.h"

namespace Atc {
// Fills in name (if the index gave none), title, toc, summary and declaration.
void take_facts(gUnitText const & text, gUnitRecord & unit);

// Enters what the text marks; `entries` gets the index entries.
struct gMarks {
  std::vector<std::string> bookmarks; // all, with those of index entries
  std::vector<std::string> help_ids, help_aliases;
  std::vector<gIndexEntry> entries;
};
void take_marks(gNodeList const & nodes, gMarks & marks);
void take_marks(gUnitText const & text, gMarks & marks);
} // namespace Atc
