// Search for units by name that stays fast where many units share a name.
#pragma once

#include <unordered_map>
#include <vector>

#include "ana/anadat/gdocunit.h"
#include "ana/anadat/gfileobjtable.h"
#include "ana/anadat/gunitnames.h"

// A unit can be taken at a rank above the one that it is bound with. Ranks only rise while the
// association runs, so a unit that can't be taken at a rank never can be again; both searches
// below rest on this and never look twice at what is lost.
inline bool can_take(gDocUnit const & unit, int rank) {
  return !unit.code_elem() || unit.rank() < rank;
}

// The units of one name in one file, by ascending place.
class gNamesakes {
public:
  struct Entry {
    gLinePlace place;
    gDocUnit * unit;
  };

  void add(gLinePlace place, gDocUnit * unit) { entries_.push_back({place, unit}); }
  // The first unit at or behind `place` that can be taken; null if there is none.
  Entry const * first_free(gLinePlace place, int rank);

private:
  // For one rank: where to go on from an entry that can't be taken.
  struct Skips {
    int rank;
    std::vector<unsigned> next;
  };
  std::vector<unsigned> & skips_for(int rank);

  std::vector<Entry> entries_;
  std::vector<Skips> skips_;
};

// The named units of one file by their names.
class gFileUnits {
public:
  explicit gFileUnits(gLineObjMap<cRef<gDocUnit>> const & units);
  // The first unit in [begin, end) whose name is `name` or a tail of it behind a `sep`, and
  // that can be taken; null if there is none.
  gDocUnit * find(std::string_view name, std::string_view sep, gLinePlace begin, gLinePlace end,
                  int rank);

private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };
  std::unordered_map<std::string, gNamesakes, Hash, std::equal_to<>> names_;
};

// The units of one full name in all files, in the order of entry.
class gFarNamesakes {
public:
  explicit gFarNamesakes(gUnitList const & list);
  // The first unit that can be taken and lies in another file or, with `folders`, in another
  // folder; null if there is none.
  gDocUnit * find(gSrcFile const & file, bool folders, int rank);

private:
  struct Place {
    int file;
    int folder;
  };
  // The first unit that can be taken, and the first of another place than that.
  struct Front {
    int rank;
    bool folders;
    std::size_t first = 0;
    std::size_t second = 0;
  };
  int place_number(std::string const & text);
  Front & front_for(bool folders, int rank);

  gUnitList const & list_;
  std::unordered_map<std::string, int> numbers_;
  std::vector<Place> places_; // of the units
  std::vector<Front> fronts_;
};
