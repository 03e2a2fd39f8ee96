// The pages of units.
#pragma once

#include "conv/htm/htm_setter.h"
#include "conv/htm/includes.h"
#include "conv/htm/overview.h"
#include "conv/htm/page_parts.h"
#include "conv/htm/page_writer.h"
#include "conv/htm/relations.h"
#include "conv/htm/scopes.h"
#include "conv/htm/search_index.h"
#include "conv/htm/uses.h"

// What a page leaves beside its files.
struct gMadePage {
  // What can be searched for in a unit.
  struct Unit {
    Unit(int unit, std::string text) : unit(unit), text(std::move(text)) {}
    int unit;
    std::string text; // what it says
    std::vector<gSearchValue> values;
  };
  gReportList reports;
  std::vector<Unit> units;
};

// Makes pages one after the other; a thread has a maker of its own. A page depends on its number
// and the plan of the site alone.
class gUnitPages {
public:
  // All have to outlive this.
  gUnitPages(gConversion & conversion, gSite & site, gColours const & colours,
             gNavigation const & navigation, gContents const & contents, gScopes const & scopes,
             gIncludes const & includes, gUses const & uses);

  // Writes the page, and those of the hierarchies that it leads to.
  gMadePage make(int page);

private:
  struct gParts;

  gPageFrame set_page();
  gPageFrame set_in_parts(gPageFrame frame);
  void add_parts(gPageFrame const & main);
  bool shorten_rows(std::size_t excess);
  bool shorten_rows(std::size_t excess, std::size_t saved, std::set<int> & rows) const;
  gMemberRow row_of_part(int unit, gRowPlace const & place);
  void add_with_below(int unit, std::string & out);
  void add_unit(int unit, std::string & out);
  std::string place_of(int unit) const;
  void enter_search(int unit, std::string text);
  void add_groups(gListed listed);
  void add_members(std::string & out);
  gMemberRow row_of(int unit, gRowPlace place);
  bool is_told(int unit) const;
  std::string friends_of(int unit, int level, gOverview::gMemberRows const & rows) const;
  gListed overview_of(int unit, int level);
  void write_hierarchies(int unit);
  void set_parts(int number, gUnitText const & text, gParts & parts);
  void add_place(int unit);
  void set_running_heads(gPageFrame & frame, int section);

  gSite & site_;
  gPageWriter writer_;
  gHtmSetter setter_;
  gNavigation const & navigation_;
  gOverview overview_;
  gRelations relations_;
  gScopes const & scopes_;
  gIncludes const & includes_;
  gUses const & uses_;
  gListed listed_;                   // below the unit that the page begins with
  std::map<int, std::string> told_;  // units of which their rows say all, with what they say
  std::map<int, gMemberText> texts_; // of members that stand in lists
  gPageParts parts_;                 // empty if all texts stand on the page itself
  bool has_members_ = false;         // in lists on the page at work
  std::set<int> plain_rows_;         // members whose types aren't linked, where that is too much
  std::set<int> short_rows_;         // of them those with names alone
  bool rows_are_brief_ = false;      // and with as few tags as can be
  std::vector<gPageFrame> beside_;   // further pages that belong to the page at work
  int page_ = -1;
  int deeper_ = 0; // by how much headings stand deeper than their units do
  std::map<std::string_view, std::size_t> skipped_; // stretches by the scope that they stand in
  gPlaces places_;
  gMadePage made_; // of the page at work
};
