// The pages of the units.
#pragma once

#include "conv/htm/htm_setter.h"
#include "conv/htm/includes.h"
#include "conv/htm/overview.h"
#include "conv/htm/page_writer.h"
#include "conv/htm/relations.h"
#include "conv/htm/scopes.h"
#include "conv/htm/search_index.h"

class gUnitPages {
public:
  gUnitPages(gSite & site, gColours const & colours, gNavigation const & navigation,
             gContents const & contents);

  // Writes all pages; each unit is entered in the index of words.
  void write(gConversion & conversion, gPageWriter & writer, gSearchIndex & search);
  // Addresses of index entries.
  gHtmSetter const & setter() const { return setter_; }

private:
  struct gParts;

  void write_page(int page, gPageWriter & writer, gSearchIndex & search);
  void add_unit(int unit, gSearchIndex & search, std::string & out);
  std::string place_of(int unit) const;
  std::string overview_of(int unit, int level);
  void write_hierarchies(int unit, gPageWriter & writer);
  void set_parts(int number, gUnitText const & text, gParts & parts);
  void add_place(int unit);
  void add_values(int unit, gSearchIndex & search);
  void set_running_heads(gPageFrame & frame, int section);

  gSite & site_;
  gHtmSetter setter_;
  gNavigation const & navigation_;
  gOverview overview_;
  gRelations relations_;
  gScopes scopes_;
  gIncludes includes_;
  std::map<std::string_view, std::size_t> skipped_; // stretches by the scope that they stand in
  gPlaces places_;
};
