// Attributes are few, so a sorted vector is searched from the front.
#include "ana/anadat/gattributes.h"

#include <algorithm>

#include "ana/anadat/tables.h"

void gAttrTable::set(cRef<gString const> const & name, cRef<gString const> const & value) {
  auto place = std::find_if(entries.begin(), entries.end(),
                            [&](gAttrEntry const & entry) { return *entry.name >= *name; });
  if (place != entries.end() && *place->name == *name)
    place->value = value;
  else
    entries.insert(place, gAttrEntry{name, value});
}

std::vector<gAttrEntry> const & gAttributes::entries() const {
  static std::vector<gAttrEntry> const none;
  return table_ ? table_->entries : none;
}

gString const * gAttributes::find(std::string_view name) const {
  for (Entry const & entry : entries())
    if (*entry.name == name)
      return entry.value.get();
  return nullptr;
}

void gAttributes::set(gString const & name, gString const & value) {
  gString const * old = find(name);
  if (!old || *old != value)
    table_ = gTexts.with(table_, name, value);
}
