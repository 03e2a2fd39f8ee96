// Which units stand together on a page.
#pragma once

#include <set>

#include "conv/atc/document.h"
#include "conv/htm/forest.h"

struct gPage {
  int first = 0, end = 0; // its units, [first, end)
};

class gPages {
public:
  // A page that would hold more units than this, below a unit without declaration, is split.
  static constexpr int most_units = 400;

  // A unit down to the level `split` begins a page, and so does the first unit of a section. Where
  // a mere list of units gets too long for a page, each of them begins one.
  gPages(gDocument const & document, int split);

  int size() const { return static_cast<int>(pages_.size()); }
  gPage const & operator[](int page) const { return pages_[static_cast<std::size_t>(page)]; }
  int of(int unit) const { return of_[static_cast<std::size_t>(unit)]; }
  bool begins(int unit) const { return (*this)[of(unit)].first == unit; }
  // How many units on its page it stands below.
  int depth(int unit) const;

  // The page was split: `unit`, which begins it, is a list of units that stood on it once.
  bool is_long_list(int unit) const { return long_lists_.contains(unit); }
  gForest const & tree() const { return tree_; }   // of pages
  gForest const & units() const { return units_; } // of units

private:
  std::vector<bool> begins(gDocument const & document, int split);
  void split_long_list(gDocument const & document, int first, int end, std::vector<bool> & begins);

  std::vector<gPage> pages_;
  std::vector<int> of_;
  std::set<int> long_lists_;
  gForest tree_, units_;
};
