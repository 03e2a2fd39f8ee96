// The ways through the site: the tree of contents beside a page, the way to it, its neighbours, and
// the places on it. All as finished text.
#pragma once

#include "conv/htm/contents.h"

struct gNeighbour {
  std::string href, title;
};

class gNavigation {
public:
  gNavigation(gSite const & site, gContents const & contents) : site_(site), contents_(contents) {}

  // The pages above a page; -1 gives the start page alone. The last one is the page itself, under
  // the title that is given.
  std::string crumbs(int above, std::string_view here, std::string_view root) const;
  // The tree with the way to the page open; -1 for pages that stand in no tree.
  std::string tree(int page) const;
  gNeighbour previous(int page) const { return neighbour(page - 1); }
  gNeighbour next(int page) const { return neighbour(page + 1); }

private:
  gNeighbour neighbour(int page) const;
  std::string list(int parent, std::vector<int> const & path, std::size_t level) const;
  void add_item(int page, std::vector<int> const & path, std::size_t level,
                std::string & out) const;
  void add_more(int parent, std::size_t count, std::string & out) const;

  gSite const & site_;
  gContents const & contents_;
};

// The places on a page, in their order.
class gPlaces {
public:
  explicit gPlaces(gSite const & site) : site_(site) {}

  void add_unit(int unit);
  // `level`: that of the unit's heading and its own.
  void add_headline(std::string_view anchor, std::string_view title, int level);
  std::string take(); // empty if there are no places to choose from

private:
  void finish_row();

  gSite const & site_;
  gRow row_; // the units that came last
  std::string items_;
  std::size_t count_ = 0;
};
