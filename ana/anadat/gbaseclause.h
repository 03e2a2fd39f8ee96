// The direct bases of a class.
#pragma once

#include <vector>

#include "vlb/gstring.h"

enum gAccess : int {
  access_public = 1,
  access_protected = 2,
  access_private = 4,
  access_virtual = 8
};

struct gBaseEntry {
  gString name; // as written, with qualifiers and template arguments
  int access = 0;
};

// The bases of one class in source order.
struct gBaseClause : cShared {
  void append(gBaseEntry const & entry) { entries.push_back(entry); }
  // "public virtual A, private B".
  gString make_string() const;

  std::vector<gBaseEntry> entries;
};
