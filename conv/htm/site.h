// What all parts of a site share: the document, and the plan of its pages.
#pragma once

#include "conv/htm/addresses.h"
#include "conv/htm/kinds.h"
#include "conv/htm/pages.h"
#include "conv/htm/sources.h"

struct gSite {
  gSite(gDocument const & document, gVltRules const & rules, std::string title, int split_level);
  gSite(gSite const &) = delete;
  gSite & operator=(gSite const &) = delete;

  gUnitRecord const & unit(int number) const {
    return document.units[static_cast<std::size_t>(number)];
  }
  // The unit that a page begins with.
  gUnitRecord const & head(int page) const { return unit(pages[page].first); }

  gDocument const & document;
  gVltRules const & rules;
  std::string title; // of the whole; plain text
  gPages pages;
  gKinds kinds;
  gSources sources;
  gAddresses addresses;
};

namespace Site {

// What a name stands in: "Registry" of "Registry::enter"; empty for a simple name.
std::string_view scope_of(std::string_view name);
// The last part of a name.
std::string_view last_part(std::string_view name);
// The title without its scope, where it is the name of the unit.
std::string_view short_title(gUnitRecord const & unit);
// The title in lists below the unit's place.
std::string_view contents_title(gUnitRecord const & unit);

} // namespace Site
