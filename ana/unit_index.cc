// Walking a list of namesakes from its top for every code element costs the square of their
// number. The lists here remember what was lost, so all searches together cost little more than
// the length of the list.

#include "ana/unit_index.h"

#include <algorithm>

namespace {

// Shorter lists are just walked.
constexpr std::size_t short_list = 8;

} // namespace

std::vector<unsigned> & gNamesakes::skips_for(int rank) {
  for (Skips & skips : skips_) {
    if (skips.rank == rank)
      return skips.next;
  }
  skips_.push_back({rank, {}});
  std::vector<unsigned> & next = skips_.back().next;
  next.resize(entries_.size() + 1);
  for (unsigned i = 0; i <= entries_.size(); ++i)
    next[i] = i;
  return next;
}

gNamesakes::Entry const * gNamesakes::first_free(gLinePlace place, int rank) {
  auto const begin = std::lower_bound(entries_.begin(), entries_.end(), place,
                                      [](Entry const & e, gLinePlace p) { return e.place < p; });
  if (entries_.size() <= short_list) {
    auto const found = std::find_if(begin, entries_.end(),
                                    [&](Entry const & e) { return can_take(*e.unit, rank); });
    return found == entries_.end() ? nullptr : &*found;
  }
  // A chain of skips leads to the next entry that could still be taken; it is shortened on the way.
  std::vector<unsigned> & next = skips_for(rank);
  unsigned i = static_cast<unsigned>(begin - entries_.begin());
  while (i < entries_.size()) {
    if (next[i] != i) {
      next[i] = next[next[i]];
      i = next[i];
    } else if (can_take(*entries_[i].unit, rank)) {
      return &entries_[i];
    } else {
      next[i] = i + 1;
    }
  }
  return nullptr;
}

gFileUnits::gFileUnits(gLineObjMap<cRef<gDocUnit>> const & units) {
  for (auto const & [place, unit] : units)
    names_[unit->name()].add(place, unit.get());
}

gDocUnit * gFileUnits::find(std::string_view name, std::string_view sep, gLinePlace begin,
                            gLinePlace end, int rank) {
  gNamesakes::Entry const * best = nullptr;
  for (std::string_view tail = name;;) {
    if (auto const found = names_.find(tail); found != names_.end()) {
      gNamesakes::Entry const * entry = found->second.first_free(begin, rank);
      if (entry && entry->place < end && (!best || entry->place < best->place))
        best = entry;
    }
    std::size_t const cut = sep.empty() ? tail.npos : tail.find(sep);
    if (cut == tail.npos)
      return best ? best->unit : nullptr;
    tail.remove_prefix(cut + sep.size());
  }
}

gFarNamesakes::gFarNamesakes(gUnitList const & list) : list_(list) {
  for (cRef<gDocUnit> const & unit : list.units) {
    gPathstring const & path = unit->loc().file().opath();
    // Paths differ without regard to case, folders with it; the prefixes keep the two apart.
    places_.push_back(
        {place_number("f" + Vlb::to_lower(path)), place_number("d" + path.dir_name())});
  }
}

int gFarNamesakes::place_number(std::string const & text) {
  return numbers_.try_emplace(text, static_cast<int>(numbers_.size())).first->second;
}

gFarNamesakes::Front & gFarNamesakes::front_for(bool folders, int rank) {
  for (Front & front : fronts_) {
    if (front.rank == rank && front.folders == folders)
      return front;
  }
  fronts_.push_back({rank, folders, 0, 0});
  return fronts_.back();
}

gDocUnit * gFarNamesakes::find(gSrcFile const & file, bool folders, int rank) {
  auto const place = [&](std::size_t i) { return folders ? places_[i].folder : places_[i].file; };
  auto const lost = [&](std::size_t i) { return !can_take(*list_.units[i], rank); };
  Front & front = front_for(folders, rank);
  std::size_t const size = list_.units.size();
  while (front.first < size && lost(front.first))
    ++front.first;
  if (front.first == size)
    return nullptr;
  int const own =
      place_number(folders ? "d" + file.opath().dir_name() : "f" + Vlb::to_lower(file.opath()));
  if (place(front.first) != own)
    return list_.units[front.first].get();
  // What lies between the two is lost or in the place of the first, so this only moves forward.
  front.second = std::max(front.second, front.first + 1);
  while (front.second < size && (lost(front.second) || place(front.second) == own))
    ++front.second;
  return front.second == size ? nullptr : list_.units[front.second].get();
}
