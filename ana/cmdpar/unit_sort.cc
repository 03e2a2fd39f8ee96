// Sorting by keys that are worked out once a unit; places in files compare as two numbers.
#include <algorithm>
#include <tuple>

#include "ana/cmdpar/gunitselector.h"

namespace {

template <class Key> struct Keyed {
  Key key;
  cRef<gDocUnit> unit;
};

template <class MakeKey> void sort_by(std::vector<cRef<gDocUnit>> & units, MakeKey make_key) {
  using Key = decltype(make_key(*units.front()));
  std::vector<Keyed<Key>> keyed;
  keyed.reserve(units.size());
  for (cRef<gDocUnit> & unit : units)
    keyed.push_back({make_key(*unit), std::move(unit)});
  std::stable_sort(keyed.begin(), keyed.end(),
                   [](auto const & a, auto const & b) { return a.key < b.key; });
  std::transform(keyed.begin(), keyed.end(), units.begin(),
                 [](auto & entry) { return std::move(entry.unit); });
}

gLoc const & place_of(gDocUnit const & unit, gSortMode mode) {
  return mode == gSortMode::ce_loc ? unit.code_loc() : unit.loc();
}

// Input files come in the order of their numbers, others by their paths. Paths that differ in case
// alone count as one file.
int compare_files(gSrcFile const & a, gSrcFile const & b) {
  if (Vlb::compare_i(a.opath(), b.opath()) == 0)
    return 0;
  if (a.number() != 0 && b.number() != 0)
    return a.number() < b.number() ? -1 : 1;
  return a.opath().compare(b.opath());
}

// The rank of each file among those of the units, by the record that positions share.
using Ranks = std::unordered_map<gPathstring const *, int>;

Ranks rank_files(std::vector<cRef<gDocUnit>> const & units, gSortMode mode) {
  Ranks ranks;
  std::vector<gSrcFile> files;
  for (cRef<gDocUnit> const & unit : units) {
    gSrcFile const & file = place_of(*unit, mode).file();
    if (ranks.try_emplace(&file.opath(), 0).second)
      files.push_back(file);
  }
  std::stable_sort(files.begin(), files.end(),
                   [](gSrcFile const & a, gSrcFile const & b) { return compare_files(a, b) < 0; });
  int rank = 0;
  for (std::size_t n = 0; n < files.size(); ++n) {
    if (n > 0 && compare_files(files[n - 1], files[n]) != 0)
      ++rank;
    ranks[&files[n].opath()] = rank;
  }
  return ranks;
}

void sort_by_place(std::vector<cRef<gDocUnit>> & units, gSortMode mode) {
  Ranks const ranks = rank_files(units, mode);
  sort_by(units, [&](gDocUnit const & unit) {
    gLoc const & place = place_of(unit, mode);
    bool const in_code = mode == gSortMode::ce_loc && unit.code_elem();
    return std::tuple(ranks.at(&place.file().opath()), place.line(),
                      in_code ? unit.code_elem()->column : 0);
  });
}

} // namespace

void sort_units(std::vector<cRef<gDocUnit>> & units, gSortMode mode) {
  switch (mode) {
  case gSortMode::name:
    return sort_by(units, [](gDocUnit const & unit) { return std::string(unit.name()); });
  case gSortMode::ci_name:
    return sort_by(units, [](gDocUnit const & unit) { return Vlb::to_lower(unit.name()); });
  case gSortMode::unit_loc:
  case gSortMode::ce_loc:
    return sort_by_place(units, mode);
  }
}
