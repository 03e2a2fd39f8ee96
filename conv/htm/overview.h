// The list of what stands below a unit, grouped by kinds.
#pragma once

#include "conv/htm/contents.h"

class gOverview {
public:
  gOverview(gSite const & site, gContents const & contents) : site_(site), contents_(contents) {}

  // For the page of the unit; -1 for the start page. `level` is that of its headings. Empty if
  // there is too little below the unit to need a list.
  std::string of(int unit, int level) const;

private:
  void add_group(std::vector<int> const & units, int page, int level, bool titled,
                 std::string & out) const;
  void add_item(int unit, int page, std::string const & id, std::string & out) const;

  gSite const & site_;
  gContents const & contents_;
};
