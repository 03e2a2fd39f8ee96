// What all parts of a site share: the document, and the plan of its pages.
#pragma once

#include "conv/htm/addresses.h"
#include "conv/htm/pages.h"
#include "conv/htm/source_addresses.h"
#include "conv/set/externals.h"
#include "conv/set/kinds.h"
#include "conv/set/repository.h"

struct gSite {
  gSite(gDocument const & document, gVltRules const & rules, std::string title, int split_level);
  gSite(gSite const &) = delete;
  gSite & operator=(gSite const &) = delete;

  gUnitRecord const & unit(int number) const {
    return document.units[static_cast<std::size_t>(number)];
  }
  // A number for readers, such as "12,345".
  std::string number(std::size_t value) const;
  // The unit that a page begins with.
  gUnitRecord const & head(int page) const { return unit(pages[page].first); }

  gDocument const & document;
  gVltRules const & rules;
  std::string title;         // of the whole; plain text
  std::string editor_scheme; // address by which a source opens in an editor; may be empty
  gExternals const * externals = nullptr;
  gRepository * repository = nullptr;
  gPages pages;
  gKinds kinds;
  gSources sources;
  gSourceAddresses source_addresses;
  gAddresses addresses;

private:
  std::string thousands_;
};

// Neighbours that a reader takes for one thing, such as overloads.
struct gRow {
  int unit = -1; // the first
  std::size_t count = 1;
  std::string_view summary; // the first that there is
};

namespace Site {

// The title without its scope, where it is the name of the unit.
std::string_view short_title(gUnitRecord const & unit);
// The title in lists below the unit's place.
std::string_view contents_title(gUnitRecord const & unit);
// The title is the name, whole or its last part.
bool is_named(gUnitRecord const & unit);

// The unit stands in one row with those before it.
bool joins(gSite const & site, gRow const & row, int unit);
// Units that aren't shown are left out.
std::vector<gRow> rows_of(gSite const & site, std::span<int const> units);
// "2" and more; empty for one.
std::string count_of(std::size_t count);

} // namespace Site
