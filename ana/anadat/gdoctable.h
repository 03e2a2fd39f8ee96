// The units of the document by every tail of their names.
#pragma once

#include <cstdint>
#include <unordered_map>

#include "ana/anadat/gdocunit.h"

// A unit "a::b::c" stands under "a::b::c", "b::c" and "c"; one without a name under nothing. The
// table keeps no names: it finds a tail by its hash and asks the first unit there for its name. The
// units' names, bookmark flags and outlines must not change any more.
class gDocTable {
public:
  // The tree owns the unit.
  void add(gDocUnit & unit);
  // Calls `visit` for each unit that stands under `name`, in the order of entry.
  template <class Visit> void each(std::string_view name, Visit visit) const {
    for (std::uint32_t at = first(name); at != 0; at = postings_[at].next)
      visit(*postings_[at].unit);
  }
  // The unit that a reference from `from` to `name` leads to: of the units with a bookmark the one
  // whose outline differs least, compared from the first depth on. Of equally near ones the first
  // counts, and a place that equals `from` only if the first unit of all stands there. Null if
  // there is none.
  gDocUnit * nearest(gOutline const & from, std::string_view name) const;
  void clear();

private:
  // Postings are chained by number; number 0 ends a chain.
  struct Slot {
    std::uint64_t hash;
    std::uint32_t first, last;
  };
  struct Posting {
    gDocUnit * unit;
    std::uint32_t next;
  };
  // Places of a long chain by ascending outline, each with its first unit.
  struct Place {
    gDocUnit * unit;
    std::uint32_t order;
  };
  struct Places {
    std::uint32_t last = 0; // the end of the chain when they were collected
    gDocUnit * first_unit = nullptr;
    std::vector<Place> list;
  };
  using Range = std::pair<Place const *, Place const *>;

  Slot * slot(std::uint64_t hash) const;
  void enter(std::uint64_t hash, gDocUnit & unit);
  void grow();
  std::uint32_t first(std::string_view name) const;
  gDocUnit * nearest_in_chain(gOutline const & from, std::uint32_t chain) const;
  Places const & places(Slot const & chain) const;
  static gDocUnit * nearest_in_places(gOutline const & from, Places const & places);
  static void keep_nearest(std::vector<Range> & ranges, int depth, int wanted);

  std::vector<Slot> slots_; // a power of two; first == 0 marks an empty one
  std::size_t used_ = 0;
  std::vector<Posting> postings_;
  std::string name_;                // of the unit that is entered
  std::vector<std::size_t> starts_; // of its tails
  // Made at the first reference to a long chain, by the number of its first posting.
  mutable std::unordered_map<std::uint32_t, Places> places_;
};
