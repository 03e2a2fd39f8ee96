// What the templates say about the units of one type in one section.
#pragma once

#include <vector>

#include "vlb/gstrlist.h"

// A list of pieces that several holders share; never changed once it is shared.
struct gTextList : cShared {
  gTextList() = default;
  explicit gTextList(gStrList const & list) : list(list) {}
  gStrList list;
};

// One item of a unit template's body: a place, or mark-up of its own.
struct gContentsItem {
  enum Kind { headline, link_line, hierarchy, subentry, text };
  Kind kind;
  gString word;          // of a subentry
  gStrList pieces;       // a subentry's title, or the mark-up
  bool verbatim = false; // of a subentry
  bool variable = false; // pieces hold placeholders
};

// Read from the templates and options once for each section template and unit type; every unit
// that is compiled against them holds it.
struct gUnitLook : cShared {
  gUnitLook(gString const & section_template, gString const & unit_type);

  bool is_verbatim(std::string_view subentry) const;

  gString unit_template;
  gString style;
  bool no_bookmark, no_index;
  bool facts_line;        // of the project, not of the template
  int hier_up, hier_down; // hier_unset if the template has none
  int tab_width;
  cRef<gTextList> link_line, headline, srclink_text; // null for none
  std::vector<gContentsItem> contents;

private:
  void read_verbatim(gString const & unit_type);
  void read_contents();

  std::vector<gString> verbatim_; // subentries of the type
};
