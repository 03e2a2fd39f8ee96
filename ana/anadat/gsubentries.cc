// Subentries are few, so a sorted vector is searched from the front; it is copied when one of
// several holders changes it.
#include "ana/anadat/gsubentries.h"

#include <algorithm>

#include "ana/anadat/gattributes.h"

std::vector<gSubEntries::Entry> & gSubEntries::own() {
  if (!data_)
    data_ = make_ref<Data>();
  else if (data_->refcount() > 1)
    data_ = make_ref<Data>(*data_);
  return data_->entries;
}

gSubText const * gSubEntries::find(std::string_view name) const {
  for (Entry const & entry : *this)
    if (*entry.name == name)
      return &entry.text;
  return nullptr;
}

gSubText * gSubEntries::find(std::string_view name) {
  if (!std::as_const(*this).find(name))
    return nullptr;
  own();
  return const_cast<gSubText *>(std::as_const(*this).find(name));
}

gSubText & gSubEntries::operator[](gString const & name) {
  auto & entries = own();
  auto place = std::find_if(entries.begin(), entries.end(),
                            [&](Entry const & entry) { return *entry.name >= name; });
  if (place == entries.end() || *place->name != name) {
    if (entries.size() == entries.capacity()) { // grows by one: units have two or three entries
      std::size_t const at = place - entries.begin();
      entries.reserve(entries.size() + 1);
      place = entries.begin() + at;
    }
    place = entries.insert(place, Entry{Vlb::intern(name), {}});
  }
  return place->text;
}
