// What classes and methods have to do with those above and below them, as finished text.
#pragma once

#include "conv/htm/htm_setter.h"
#include "conv/htm/overview.h"

class gRelations {
public:
  gRelations(gSite const & site, gHtmSetter & setter, gOverview const & overview)
      : site_(site),
        setter_(setter),
        overview_(overview) {}

  // Which methods one replaces, which replace it, and what topics it belongs to; empty if there
  // are none.
  std::string of(int method) const;
  // What a class has from its bases, a list for each.
  std::string inherited(int unit, int level) const;
  // The text of the method that one without a text of its own replaces; empty for all others.
  std::string borrowed(int method, gNodeList const & body) const;

private:
  std::vector<int> topics_of(int unit) const;
  void add(std::string_view what, std::span<int const> methods, std::string & out) const;

  gSite const & site_;
  gHtmSetter & setter_;
  gOverview const & overview_;
};
