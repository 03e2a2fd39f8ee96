// Lists of what stands below a unit, grouped by kinds, and long ones by what the names stand in.
#pragma once

#include "conv/htm/contents.h"

class gOverview {
public:
  gOverview(gSite const & site, gContents const & contents) : site_(site), contents_(contents) {}

  // For the page of the unit. `level` is that of its headings. Empty if there is too little below
  // the unit to need a list.
  std::string of(int unit, int level) const;
  // The rows as lists, one for each kind, as they stand on a page; -1 for the start page.
  std::string lists(std::vector<gRow> const & rows, int page, int level) const;
  // The rows one behind the other; without `kinds` they say only what things are called.
  std::string items(std::span<gRow const> rows, int page, bool kinds = true) const;

private:
  using gParts = std::map<std::string, std::vector<gRow>>; // by their titles

  gParts parts_of(std::vector<gRow> const & rows) const;
  std::string list(std::vector<gRow> const & rows, int page, int level, bool titled) const;
  void add_item(gRow const & row, int page, bool kinds, std::string const & id,
                std::string & out) const;

  gSite const & site_;
  gContents const & contents_;
};
