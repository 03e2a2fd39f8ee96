// Lists of what stands below a unit, grouped by kinds, and long ones by what the names stand in.
#pragma once

#include <functional>

#include "conv/htm/contents.h"
#include "conv/htm/scopes.h"

struct gMemberGroup;

// A member as a row of a list, as finished text.
struct gMemberRow {
  std::string signature; // empty where there is none to show
  std::string template_head;
  bool is_all = false;   // there is nothing more to say about it
  std::string summary;   // if it isn't the first sentence as plain text
  std::string details;   // link to its text, if that stands on another page
  std::string places;    // where that text could be reached on the page of the row
  std::string id;        // the first of these, which the row itself has
  std::string folder;    // of the source, where that tells it from its namesakes
  bool is_brief = false; // one of so many that each tag counts
  std::string source;    // link to its source
};
// What a row depends on beside its member.
struct gRowPlace {
  bool names_scope = false;        // most of the others stand elsewhere
  std::vector<gStretch> differing; // parameters that tell it from its overloads
  bool is_plain = false;           // there is no room for links of types
};

// Lists with the headings above them.
struct gListed {
  struct Group {
    std::string anchor, title;
    std::string place;      // that the group has in addresses
    std::vector<int> units; // if they stand on the same page
  };
  std::string text;
  std::vector<Group> groups;
};

class gOverview {
public:
  using gMemberRows = std::function<gMemberRow(int unit, gRowPlace const & place)>;

  // Without `scopes` rows don't tell what a namespace holds.
  gOverview(gSite const & site, gContents const & contents, gScopes const * scopes = nullptr)
      : site_(site),
        contents_(contents),
        scopes_(scopes) {}

  // For the page of the unit. `level` is that of its headings. Units on the same page are shown
  // with their signatures, in groups as readers look for them. Empty if there is too little below
  // the unit to need a list.
  gListed of(int unit, int level, gMemberRows const & rows) const;
  // For the page of a namespace: what it holds. Of very many those with a text come first, and how
  // many are left out is told.
  gListed within(std::span<int const> units, int page, int level, gMemberRows const & rows) const;
  // One list under the rule for `selector`; empty without any.
  std::string group(std::string_view selector, std::span<int const> units, int page,
                    int level) const;
  // The friends of a class: functions with their signatures, other units by name, and what is only
  // named, as finished texts.
  std::string friends(std::span<int const> units, std::span<std::string const> named, int page,
                      int level, gMemberRows const & rows) const;
  // The rows as lists, one for each kind, as they stand on a page; -1 for the start page.
  std::string lists(std::vector<gRow> const & rows, int page, int level, bool titled = false) const;
  // The rows one behind the other; without `kinds` they say only what things are called.
  std::string items(std::span<gRow const> rows, int page, bool kinds = true) const;
  // The same for things that have their rows elsewhere.
  std::string links(std::span<gRow const> rows, int page) const;
  // Such as "12 classes, 3 types", by the numbers of kinds; the most frequent first.
  std::string counts_of(std::map<std::size_t, std::size_t> const & counts) const;

private:
  std::string folder_of(int unit) const;
  std::string counts_below(int unit) const;
  std::string counts_within(int scope) const;
  using gParts = std::map<std::string, std::vector<gRow>>; // by their titles

  std::string folded(std::string_view selector, std::vector<gRow> const & rows, int page) const;
  struct gRoom {
    std::size_t rows;  // that may stand on the page
    std::size_t taken; // bytes of tags that others need
  };
  std::string fitting_lists(std::vector<gRow> rows, gRoom room, int page, int level,
                            bool titled) const;
  std::string plain_lists(std::vector<gRow> const & rows, int page, int level, bool titled) const;
  gListed members(std::span<int const> units, int level, gMemberRows const & rows) const;
  std::string member_items(gMemberGroup const & group, std::string_view scope, bool mixed, int page,
                           gMemberRows const & rows) const;
  void add_member(int unit, gMemberRow const & row, bool kinds, bool again,
                  std::string & out) const;
  void add_heading(gMemberGroup const & group, int level, bool on_page, std::string const & items,
                   gListed & out) const;
  gParts parts_of(std::vector<gRow> const & rows) const;
  std::string list(std::vector<gRow> const & rows, int page, int level, bool titled) const;
  void add_item(gRow const & row, int page, bool kinds, std::string const & id, std::string & out,
                gMemberRow const & shown = {}) const;

  gSite const & site_;
  gContents const & contents_;
  gScopes const * scopes_;
};
