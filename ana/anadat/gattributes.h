// The attributes of a unit: a small map from name to value.
#pragma once

#include <vector>

#include "vlb/gstring.h"

struct gAttrEntry {
  cRef<gString const> name;
  cRef<gString const> value;
};

// Attributes in the order of their names.
struct gAttrTable : cShared {
  std::vector<gAttrEntry> entries;

  void set(cRef<gString const> const & name, cRef<gString const> const & value);
};

// Few combinations of attributes occur in a run, so units with equal attributes share one table:
// a unit pays one pointer.
class gAttributes {
public:
  using Entry = gAttrEntry;

  // Null if there is no such attribute.
  gString const * find(std::string_view name) const;
  void set(gString const & name, gString const & value);

  std::vector<Entry>::const_iterator begin() const { return entries().begin(); }
  std::vector<Entry>::const_iterator end() const { return entries().end(); }

private:
  std::vector<Entry> const & entries() const;

  cRef<gAttrTable const> table_; // null: no attributes
};

namespace Vlb {
// The one shared copy of a text that occurs many times in a run: words, separators, styles. The
// pool is a table of the run.
cRef<gString const> intern(std::string_view text);
} // namespace Vlb
