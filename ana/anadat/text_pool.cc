// Words and attribute tables that units share. Both only grow while a run lasts; the reset drops
// the pool's own references, and whoever still holds a text keeps it.
#include "ana/anadat/text_pool.h"

#include "ana/anadat/tables.h"

cRef<gString const> gTextPool::word(std::string_view text) {
  auto found = words_.find(text);
  if (found == words_.end())
    found = words_.insert(cRef<gString const>(new gString(text))).first;
  return *found;
}

std::size_t gTextPool::StepHash::operator()(Step const & step) const {
  std::size_t hash = reinterpret_cast<std::size_t>(step.base.get());
  hash = hash * 0x9E3779B97F4A7C15u ^ reinterpret_cast<std::size_t>(step.name.get());
  hash = hash * 0x9E3779B97F4A7C15u ^ reinterpret_cast<std::size_t>(step.value.get());
  return hash ^ hash >> 32;
}

cRef<gAttrTable const> gTextPool::with(cRef<gAttrTable const> const & base,
                                       cRef<gString const> const & name,
                                       cRef<gString const> const & value) {
  auto & table = steps_[Step{base, name, value}];
  if (!table) {
    auto * made = base ? new gAttrTable(*base) : new gAttrTable;
    table = cRef<gAttrTable const>(made);
    made->set(name, value);
  }
  return table;
}

void gTextPool::reset() {
  steps_.clear();
  words_.clear();
}

cRef<gString const> Vlb::intern(std::string_view text) {
  return gTexts.word(text);
}
