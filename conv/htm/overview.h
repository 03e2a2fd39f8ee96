// Lists of what stands below a unit, grouped by kinds, and long ones by what the names stand in.
#pragma once

#include <functional>

#include "conv/htm/contents.h"

struct gMembers;

class gOverview {
public:
  // Answers the signature of a unit as finished text, empty where there is none to show.
  using gSignatures = std::function<std::string(int unit)>;

  gOverview(gSite const & site, gContents const & contents) : site_(site), contents_(contents) {}

  // For the page of the unit. `level` is that of its headings. Units on the same page are shown
  // with their signatures, in groups as readers look for them. Empty if there is too little below
  // the unit to need a list.
  std::string of(int unit, int level, gSignatures const & signatures) const;
  // For the page of a namespace: what it holds. Of very many those with a text come first, and how
  // many are left out is told.
  std::string within(std::span<int const> units, int page, int level) const;
  // One list under the rule for `selector`; empty without units.
  std::string group(std::string_view selector, std::span<int const> units, int page,
                    int level) const;
  // The rows as lists, one for each kind, as they stand on a page; -1 for the start page.
  std::string lists(std::vector<gRow> const & rows, int page, int level) const;
  // The rows one behind the other; without `kinds` they say only what things are called.
  std::string items(std::span<gRow const> rows, int page, bool kinds = true) const;
  // The same for things that have their rows elsewhere.
  std::string links(std::span<gRow const> rows, int page) const;

private:
  using gParts = std::map<std::string, std::vector<gRow>>; // by their titles

  std::string folded(std::string_view selector, std::vector<gRow> const & rows, int page) const;
  std::string plain_lists(std::vector<gRow> const & rows, int page, int level) const;
  std::string members(std::vector<int> const & units, int level,
                      gSignatures const & signatures) const;
  void add_members(gMembers const & group, std::string const & items, int level,
                   std::string & out) const;
  gParts parts_of(std::vector<gRow> const & rows) const;
  std::string list(std::vector<gRow> const & rows, int page, int level, bool titled) const;
  void add_item(gRow const & row, int page, bool kinds, std::string const & id, std::string & out,
                std::string const & signature = {}, bool again = false) const;

  gSite const & site_;
  gContents const & contents_;
};
