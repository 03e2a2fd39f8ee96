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

std::size_t gTextPool::StepHash::operator()(StepText const & step) const {
  constexpr std::size_t mix = 0x9E3779B97F4A7C15u;
  std::size_t hash = reinterpret_cast<std::size_t>(step.base);
  hash = hash * mix ^ std::hash<std::string_view>()(step.name);
  hash = hash * mix ^ std::hash<std::string_view>()(step.value);
  return hash ^ hash >> 32;
}

cRef<gAttrTable const> gTextPool::with(cRef<gAttrTable const> const & base, std::string_view name,
                                       std::string_view value) {
  if (auto const known = steps_.find(StepText{base.get(), name, value}); known != steps_.end())
    return known->second;
  Step step{base, word(name), word(value)};
  auto made = base ? make_ref<gAttrTable>(*base) : make_ref<gAttrTable>();
  made->set(step.name, step.value);
  return steps_.emplace(std::move(step), std::move(made)).first->second;
}

void gTextPool::reset() {
  steps_.clear();
  words_.clear();
}

cRef<gString const> Vlb::intern(std::string_view text) {
  return gTexts.word(text);
}
