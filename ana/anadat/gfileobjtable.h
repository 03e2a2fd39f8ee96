// Tables by file, line and column.
#pragma once

#include <algorithm>
#include <compare>
#include <iterator>
#include <vector>

#include "store/ghash.h"
#include "vlb/gsrcfile.h"

// A place within a file. Readers that know lines alone leave the column at 0, in front of all
// columns.
struct gLinePlace {
  int line = 0;   // from 1
  int column = 0; // from 1, in bytes; 0: not known

  auto operator<=>(gLinePlace const &) const = default;
  // The first place behind this one.
  gLinePlace next() const { return {line, column + 1}; }
};

// The objects of one file by line and column. Entries come almost always in order, so a sorted
// vector serves.
template <class T> class gLineObjMap : public cShared {
public:
  struct Entry {
    gLinePlace place;
    T object;
  };
  using iterator = typename std::vector<Entry>::const_iterator;

  // An object replaces the one that stands at its place: without columns there is one a line.
  void set(gLinePlace place, T object) {
    auto at = end_of(place);
    if (at != entries_.begin() && std::prev(at)->place == place)
      std::prev(at)->object = std::move(object);
    else
      entries_.insert(at, Entry{place, std::move(object)});
  }

  // Any number of objects at a place, in the order of entry.
  void add(gLinePlace place, T object) {
    entries_.insert(end_of(place), Entry{place, std::move(object)});
  }

  // set() for entries in ascending order, in one go.
  void set_all(std::vector<Entry> const & added) {
    std::vector<Entry> merged;
    merged.reserve(entries_.size() + added.size());
    auto old = entries_.begin();
    for (Entry const & entry : added) {
      for (; old != entries_.end() && old->place < entry.place; ++old)
        merged.push_back(std::move(*old));
      if (old != entries_.end() && old->place == entry.place)
        ++old;
      merged.push_back(entry);
    }
    std::move(old, entries_.end(), std::back_inserter(merged));
    entries_ = std::move(merged);
  }

  // Removes the objects for which `gone` is true.
  template <class Gone> void erase_if(Gone const & gone) {
    std::erase_if(entries_, [&](Entry const & entry) { return gone(entry.object); });
  }

  iterator begin() const { return entries_.begin(); }
  iterator end() const { return entries_.end(); }
  std::size_t size() const { return entries_.size(); }
  // The first entry that doesn't lie in front of `place`.
  iterator lower_bound(gLinePlace place) const {
    return std::lower_bound(entries_.begin(), entries_.end(), place, below);
  }
  // True if an entry lies in the half-open range.
  bool has_in(gLinePlace first, gLinePlace end) const {
    auto const at = lower_bound(first);
    return at != entries_.end() && at->place < end;
  }

private:
  static bool below(Entry const & entry, gLinePlace place) { return entry.place < place; }
  // Behind the entries up to `place`.
  typename std::vector<Entry>::iterator end_of(gLinePlace place) {
    if (entries_.empty() || entries_.back().place <= place)
      return entries_.end();
    return std::lower_bound(entries_.begin(), entries_.end(), place.next(), below);
  }

  std::vector<Entry> entries_;
};

// From the user's path of a file to its map, in the order in which files were first entered.
template <class T> class gFileObjTable : public gGlobalHash<cRef<gLineObjMap<T>>> {
public:
  using Map = gLineObjMap<T>;

  void insert_at(gLoc const & loc, T object) {
    own_map(loc.file()).set({loc.line()}, std::move(object));
  }

  // Enters objects of one file, in ascending order.
  void insert_all(gSrcFile const & file, std::vector<typename Map::Entry> const & entries) {
    own_map(file).set_all(entries);
  }

  // The map of a file; null if the table has nothing of it. One file is asked for many times in a
  // row, so its path is looked up once.
  Map * map_of(gSrcFile const & file) const {
    if (&file.opath() != &last_.file.opath()) {
      auto const * found = this->lookup(file.opath());
      last_ = {file, found ? found->get() : nullptr};
    }
    return last_.map;
  }
  // The same; made if there is none.
  Map & own_map(gSrcFile const & file) {
    Map * map = map_of(file);
    if (!map) {
      auto made = make_ref<Map>();
      map = made.get();
      this->insert(file.opath(), std::move(made));
      last_ = {file, map};
    }
    return *map;
  }

  void reset() override {
    last_ = {};
    gGlobalHash<cRef<Map>>::reset();
  }

  // Number of entries in all files.
  std::size_t total() const {
    std::size_t sum = 0;
    for (auto const & entry : *this)
      sum += entry.value->size();
    return sum;
  }

private:
  // Holds the file, so that no other one gets its address.
  struct Last {
    gSrcFile file;
    Map * map = nullptr;
  };
  mutable Last last_;
};
