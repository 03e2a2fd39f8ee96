// What all parts of a site share: the document, and the plan of its pages.
#pragma once

#include "conv/htm/addresses.h"
#include "conv/htm/entry_anchors.h"
#include "conv/htm/link_check.h"
#include "conv/htm/once_reports.h"
#include "conv/htm/pages.h"
#include "conv/htm/source_addresses.h"
#include "conv/set/externals.h"
#include "conv/set/inheritance.h"
#include "conv/set/kinds.h"
#include "conv/set/repository.h"

class gPictures;
class gClassTree;

struct gSite {
  gSite(gDocument const & document, gVltRules const & rules, std::string title, int split_level);
  gSite(gSite const &) = delete;
  gSite & operator=(gSite const &) = delete;

  gUnitRecord const & unit(int number) const {
    return document.units[static_cast<std::size_t>(number)];
  }
  // A number for readers, such as "12,345".
  std::string number(std::size_t value) const;
  // It stands in a scope, or is one, whose name says that it isn't meant for users.
  bool is_detail(int unit) const { return detail_[static_cast<std::size_t>(unit)] == 'd'; }
  // Its source lies in a folder of tests, examples or other people's code.
  bool is_aside(int unit) const { return detail_[static_cast<std::size_t>(unit)] == 'a'; }
  // Its own or, if a method has none, that of what it replaces.
  std::string_view summary_of(int unit) const;
  // The unit that a page begins with.
  gUnitRecord const & head(int page) const { return unit(pages[page].first); }

  gDocument const & document;
  gVltRules const & rules;
  std::string title;         // of the whole; plain text
  std::string editor_scheme; // address by which a source opens in an editor; may be empty
  std::string version, description;
  std::string address; // where the pages will stand, with a "/" at its end; empty if not known
  gExternals const * externals = nullptr;
  gRepository * repository = nullptr;
  gPictures * pictures = nullptr;
  gLinkCheck * link_check = nullptr; // of all pages
  gClassTree const * class_tree = nullptr;
  gPages pages;
  gKinds kinds;
  gInheritance inheritance;
  gSources sources;
  gSourceAddresses source_addresses;
  gAddresses addresses;
  gEntryAnchors entries;
  gOnceReports reports; // of all pages, in their order

private:
  void note_details();
  void note_asides();

  std::string thousands_;
  std::string detail_; // by unit: 'd', 'a' or a blank
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
