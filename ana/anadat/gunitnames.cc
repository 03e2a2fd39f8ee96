// The search goes from the whole name to ever shorter tails of it.
#include "ana/anadat/gunitnames.h"

namespace {

// Cuts off everything up to and including the first separator; false if there is none.
bool drop_component(std::string_view & name, std::string_view sep) {
  std::size_t const at = sep.empty() ? name.npos : name.find(sep);
  if (at == name.npos)
    return false;
  name.remove_prefix(at + sep.size());
  return true;
}

} // namespace

void gUnitNameTable::add(gString const & name, cRef<gDocUnit> const & unit) {
  if (cRef<gUnitList> * list = lookup(name)) {
    (*list)->units.push_back(unit);
    return;
  }
  auto list = make_ref<gUnitList>();
  list->units.push_back(unit);
  insert(name, list);
}

bool gUnitNameTable::find(gString const & name, cRef<gDocUnit> & unit, gString const & sep) {
  list_ = nullptr;
  std::string_view tail = name;
  cRef<gUnitList> const * found = lookup(tail);
  while (!found && drop_component(tail, sep))
    found = lookup(tail);
  if (!found || (*found)->units.empty())
    return false;
  list_ = *found;
  position_ = 0;
  if (key_ != tail)
    key_ = gString(tail);
  sep_ = sep;
  unit = list_->units.front();
  return true;
}

bool gUnitNameTable::next(cRef<gDocUnit> & unit) {
  if (!list_)
    return false;
  if (++position_ < list_->units.size()) {
    unit = list_->units[position_];
    return true;
  }
  std::string_view tail = key_;
  list_ = nullptr;
  return drop_component(tail, sep_) && find(gString(tail), unit, gString(sep_));
}

void gUnitNameTable::reset() {
  list_ = nullptr;
  position_ = 0;
  key_.clear();
  sep_.clear();
  clear();
}
