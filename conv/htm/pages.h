// Which units stand together on a page.
#pragma once

#include <set>

#include "conv/atc/document.h"
#include "conv/set/forest.h"

struct gPage {
  int first = 0, end = 0; // its units, [first, end)
  int same = 1;           // how many of them are one set, such as overloads, with the first
};

class gPages {
public:
  // A page that would hold more units than this, below a unit without declaration, is split.
  static constexpr int most_units = 250;
  // Nor does a page take in more of a set when it has so much text: HTML is ten times as long.
  static constexpr std::size_t most_bytes = 25000;

  // A unit down to the level `split` begins a page, and so does the first unit of a section. Where
  // a mere list of units gets too long for a page, each of them begins one. Neighbours with the
  // same name and style share a page. A heading with nothing below it has none.
  gPages(gDocument const & document, int split);

  int size() const { return static_cast<int>(pages_.size()); }
  gPage const & operator[](int page) const { return pages_[static_cast<std::size_t>(page)]; }
  // -1 for a unit that isn't shown.
  int of(int unit) const { return of_[static_cast<std::size_t>(unit)]; }
  bool begins(int unit) const { return of(unit) >= 0 && (*this)[of(unit)].first == unit; }
  // The unit begins a page or belongs to the set that does.
  bool heads(int unit) const;
  // How many units on its page it stands below; what the page begins with is above all others.
  int depth(int unit) const;

  // The page was split: `unit`, which begins it, is a list of units that stood on it once.
  bool is_long_list(int unit) const { return long_lists_.contains(unit); }
  gForest const & tree() const { return tree_; }   // of pages
  gForest const & units() const { return units_; } // of units

private:
  using gFlags = std::vector<bool>;

  gFlags begins(gDocument const & document, int split);
  void split_long_list(gDocument const & document, int first, int end, gFlags & begins);
  void join_sets(gFlags & begins);
  bool is_mere_heading(std::size_t unit) const;
  bool is_empty_heading(std::size_t unit, gFlags const & begins) const;
  bool is_same(std::size_t a, std::size_t b) const;

  gDocument const & document_;
  std::vector<gPage> pages_;
  std::vector<int> of_;
  std::set<int> long_lists_;
  gForest tree_, units_;
};
