// The whole tree of pages, on as many pages of contents as it needs.
#pragma once

#include <set>

#include "conv/htm/site.h"

// A page of contents: pages that stand below one other page.
struct gContentsPage {
  std::string file, title;         // plain text
  int parent = -1;                 // -1: those at the top
  std::size_t first = 0, end = 0;  // of the parent's children
  std::vector<std::size_t> groups; // instead of children: pages of contents, each with some of them
};

class gContents {
public:
  explicit gContents(gSite const & site);

  // The file that lists the children of a page; -1 for those at the top.
  std::string const & file(int parent) const;
  std::vector<gContentsPage> const & pages() const { return pages_; }
  // Links, as items of a list, to the parts of one that is too long for a page; empty for others.
  std::string ranges(int parent) const;
  // The list that stands on a page of contents, as finished text.
  std::string list(gContentsPage const & page) const;
  // Only some of the entries of a list.
  bool is_part(gContentsPage const & page) const;
  // Such a part with nothing below its entries, so that there is room to say more of each.
  bool is_plain(gContentsPage const & page) const;

private:
  void plan(int parent, std::string const & file);
  void plan_groups(std::size_t page);
  void plan_below(int parent, std::size_t first, std::size_t end);
  bool stands_inline(int page, std::size_t siblings) const;
  std::string list_pages(std::span<int const> pages, bool whole, int level) const;
  std::string range_of(int first, int last) const;
  std::string group_items(gContentsPage const & page) const;
  std::string list_groups(gContentsPage const & page) const;
  std::string unique(std::string name);

  gSite const & site_;
  std::vector<gContentsPage> pages_;
  std::map<int, std::size_t> listed_; // parents to their pages of contents
  std::set<std::string> taken_;       // lower case
};
