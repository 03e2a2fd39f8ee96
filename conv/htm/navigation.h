// The ways through the site. What stands in a namespace, unit or class is found by what it stands
// in, everything else by the chapters of the document: the tree of contents beside a page, the way
// to it, its neighbours, and the places on it. All as finished text.
#pragma once

#include "conv/htm/contents.h"
#include "conv/htm/scopes.h"

struct gNeighbour {
  std::string href, title;
};

class gNavigation {
public:
  gNavigation(gSite const & site, gContents const & contents, gScopes const & scopes);

  // The start page, the pages above a page, and that page itself.
  std::string crumbs(int page) const;
  // The way to a page, and one below it under the title that is given; -1 for the start page.
  std::string crumbs(int above, std::string_view here, std::string_view root) const;
  // The tree with the way to the page open; -1 for pages that stand in no tree. For those in a
  // scope the chapters, and what stands in each scope on the way.
  std::string tree(int page) const;
  gNeighbour previous(int page) const { return neighbour(page - 1); }
  gNeighbour next(int page) const { return neighbour(page + 1); }

private:
  using gWay = std::vector<int>; // pages, from the top

  gNeighbour neighbour(int page) const;
  std::string_view title_of(int page) const;
  gWay way_to(int page) const;
  std::string crumbs_along(gWay const & way, std::string_view here, std::string_view root) const;
  std::string list(int parent, gWay const & way, std::size_t level) const;
  std::string scope_list(gWay const & way, std::size_t level) const;
  std::string items(std::vector<int> const & pages, gWay const & way, std::size_t level,
                    std::string const & all) const;
  void add_item(int page, gWay const & way, std::size_t level, std::string & out) const;
  void add_more(std::string const & href, std::size_t count, std::string & out) const;
  bool is_scoped(gWay const & way) const {
    return !way.empty() && scopes_.is_in_order(site_.pages[way[0]].first);
  }

  gSite const & site_;
  gContents const & contents_;
  gScopes const & scopes_;
  std::vector<std::string> titles_; // of pages in the tree, finished: each stands on many pages
};

// The places on a page, in their order.
class gPlaces {
public:
  explicit gPlaces(gSite const & site) : site_(site) {}

  void add_unit(int unit, int deeper = 0);
  // `level`: that of the unit's heading and its own.
  void add_headline(std::string_view anchor, std::string_view title, int level);
  std::string take(); // empty if there are no places to choose from

private:
  void finish_row();

  gSite const & site_;
  gRow row_; // the units that came last
  int deeper_ = 0;
  std::string items_;
  std::size_t count_ = 0;
};
