// The data of the search field: files in _search/ that pages load as scripts when someone searches,
// so that it works without a server. Each file is one call of a function of the search's script:
//
//   index.js  vlSearch.start({"entries": 4711, "block": 512, "parts": 2,
//                             "kinds": [["class", "class"], ...], "shards": ["aaa", "bas", ...]})
//   n-N.js    vlSearch.names(N, first, NAMES, SCOPES, "scope runs", "kind runs")
//   s-N.js    vlSearch.types(N, TYPES, "signatures")
//   b-N.js    vlSearch.block(N, PATHS, ENTRIES)
//   w-N.js    the words of texts (search_texts.h)
//
// What can be found is an entry: a unit, or a value of an enumeration behind it. Entries have
// numbers from 0, in the order of the document. What is written in capitals above is a list, its
// lines in backquotes.
//
// Names come in parts, since they are all read before the first hit is shown. NAMES has a line for
// each entry from `first` on; an empty one repeats the name before it. SCOPES are texts to be put
// in front of a name, with their separator. Runs are "count.number" with "," between them, both in
// base 36, the count left out if it is 1: so many entries have the scope or kind of this number.
// Kind 0 is empty; "kinds" gives the word to show and the class for the style sheet.
//
// Of signatures there is one for each entry of the part, with ";" between them: the types of the
// parameters with "," between them, ">" and the type of the result, as numbers in base 36 of lines
// of TYPES; empty for what is no routine.
//
// What is shown beside a name comes by blocks of entries: address, place and summary, with tabs
// between them. A place is "path:line", the path as number in base 36 of a line of PATHS; without
// it, it is that of the entry before. An address is relative to the start page, in short:
//   ""       SCOPE.NAME.htm, with "." for "::"
//   "#A"     SCOPE.htm#A
//   "=F#A"   F#A; without F the file of the entry before; F alone if there is no "#"
// where A is an anchor, of which the name is left out if it begins with that and ends there or goes
// on with "-"; for SCOPE.NAME there is a "." instead.
#pragma once

#include "conv/htm/search_texts.h"
#include "conv/htm/site.h"

// A value of an enumeration, to be found by its name.
struct gSearchValue {
  int unit = -1; // the enumeration
  std::string name, anchor, summary;
};

class gSearchIndex {
public:
  explicit gSearchIndex(gSite const & site) : site_(site) {}

  // The words that a unit says, to be found by them.
  static std::string text_of(gUnitRecord const & record, gNodeList const & body);
  // A unit with its text. Units come in the order of the document.
  void add(int unit, std::string_view text);
  // Behind its unit.
  void add_value(gSearchValue value) { values_.push_back(std::move(value)); }
  void write(gConversion & conversion);

private:
  // The number of the entry of each unit.
  std::vector<std::uint32_t> entries_of_units() const;
  void write_entries(class gSearchEntries & entries) const;

  gSite const & site_;
  gSearchTexts texts_;
  std::vector<gSearchValue> values_;
};
