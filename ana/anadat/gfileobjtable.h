// Tables by file and line: one object for each line of each file.
#pragma once

#include <algorithm>
#include <iterator>
#include <vector>

#include "store/ghash.h"
#include "vlb/gsrcfile.h"

// A map from line to T, by ascending line. Entries come almost always in order, so a sorted vector
// serves.
template <class T> class gLineObjMap : public cShared {
public:
  using Entry = std::pair<int, T>;
  using iterator = typename std::vector<Entry>::const_iterator;

  // A second entry for a line replaces the first.
  void set(int line, T value) {
    if (entries_.empty() || entries_.back().first < line) {
      entries_.emplace_back(line, std::move(value));
      return;
    }
    auto place = std::lower_bound(entries_.begin(), entries_.end(), line, below);
    if (place != entries_.end() && place->first == line)
      place->second = std::move(value);
    else
      entries_.insert(place, Entry(line, std::move(value)));
  }

  // The same for entries by ascending line, in one go.
  void set_all(std::vector<Entry> const & added) {
    std::vector<Entry> merged;
    merged.reserve(entries_.size() + added.size());
    auto old = entries_.begin();
    for (Entry const & entry : added) {
      for (; old != entries_.end() && old->first < entry.first; ++old)
        merged.push_back(std::move(*old));
      if (old != entries_.end() && old->first == entry.first)
        ++old;
      merged.push_back(entry);
    }
    std::move(old, entries_.end(), std::back_inserter(merged));
    entries_ = std::move(merged);
  }

  iterator begin() const { return entries_.begin(); }
  iterator end() const { return entries_.end(); }
  std::size_t size() const { return entries_.size(); }
  // The first entry with a line not below `line`.
  iterator lower_bound(int line) const {
    return std::lower_bound(entries_.begin(), entries_.end(), line, below);
  }
  // True if an entry lies in the half-open range.
  bool has_in(int first, int end_line) const {
    auto place = lower_bound(first);
    return place != entries_.end() && place->first < end_line;
  }

private:
  static bool below(Entry const & entry, int line) { return entry.first < line; }
  std::vector<Entry> entries_;
};

// From the user's path of a file to its map, in the order in which files were first entered.
template <class T> class gFileObjTable : public gGlobalHash<cRef<gLineObjMap<T>>> {
public:
  using Map = gLineObjMap<T>;

  void insert_at(gLoc const & loc, T value) {
    if (Map * map = map_of(loc.file())) {
      map->set(loc.line(), std::move(value));
      return;
    }
    auto map = make_ref<Map>();
    map->set(loc.line(), std::move(value));
    this->insert(loc.file().opath(), map);
  }

  // Enters objects of one file, by ascending line.
  void insert_all(gSrcFile const & file, std::vector<typename Map::Entry> const & entries) {
    if (!map_of(file))
      this->insert(file.opath(), make_ref<Map>());
    map_of(file)->set_all(entries);
  }

  // The map of a file; null if the table has nothing of it.
  Map * map_of(gSrcFile const & file) const {
    auto const * found = this->lookup(file.opath());
    return found ? found->get() : nullptr;
  }

  // Number of entries in all files.
  std::size_t total() const {
    std::size_t sum = 0;
    for (auto const & entry : *this)
      sum += entry.value->size();
    return sum;
  }
};
