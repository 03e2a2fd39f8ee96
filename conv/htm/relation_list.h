// Names that the subject of a page has to do with, as links where they have a place.
#pragma once

#include "conv/htm/site.h"

class gRelationList {
public:
  // Shows the first `most` names, and tells how many more there are.
  gRelationList(gSite const & site, int page, std::size_t most)
      : site_(site),
        page_(page),
        most_(most) {}

  // `unit`: what the name leads to; -1 for nothing.
  void add(int unit, std::string_view name);
  // Appends the finished list; `what` says which relation it is.
  void put(std::string_view what, std::string & out) const;

private:
  gSite const & site_;
  int const page_;
  std::size_t const most_;
  std::size_t count_ = 0;
  std::string items_;
};
