// The subentries of a unit: a small map from name to text.
#pragma once

#include <vector>

#include "ana/anadat/gsubtext.h"

// Sorted by name; names are shared strings. Copies share everything until one of them is changed:
// most placed copies of a unit never are. Non-const access counts as a change.
class gSubEntries {
public:
  struct Entry {
    cRef<gString const> name;
    gSubText text;
  };

  gSubText * find(std::string_view name);
  gSubText const * find(std::string_view name) const;
  // The text under a name, made empty if it is new.
  gSubText & operator[](gString const & name);

  Entry * begin() { return own().data(); }
  Entry * end() { return own().data() + size(); }
  Entry const * begin() const { return data_ ? data_->entries.data() : nullptr; }
  Entry const * end() const { return begin() + size(); }
  std::size_t size() const { return data_ ? data_->entries.size() : 0; }
  bool empty() const { return size() == 0; }

private:
  struct Data : cShared {
    std::vector<Entry> entries;
  };

  // The entries, held by nobody else.
  std::vector<Entry> & own();

  cRef<Data> data_; // null: no entries
};
