// The intermediate code of a run in memory: one model for all targets.
#pragma once

#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "conv/atc/facts_line.h"
#include "conv/atc/hash_index.h"
#include "conv/atc/node.h"
#include "vlb/gpathstring.h"

// One file of the set, UTF-8. Units refer to stretches of `text`.
struct gAtcText {
  gPathstring path;
  std::string text;
};

// What is known of a unit for the length of a conversion. Its text is parsed again when it is
// needed, so that a large document costs little more than its files.
struct gUnitRecord {
  int level = 1; // depth in the document, 1 or more
  std::string wintype, style, label;
  std::string path; // the user's source
  int source_line = 0;
  std::string name;    // the display name, such as "Registry::enter"; empty for a unit without one
  std::string title;   // the headline as plain text; the name or the label's place if it has none
  std::string toc;     // its form for the contents
  std::string summary; // subject line, else the first sentence of the text; at most 200 bytes
  std::string declaration; // the text of the declaration; empty if there is none
  gKnownFacts facts;
  int section = 0; // index into sections
  int parent = -1; // the unit it stands below by its level; -1 at the top of its section
  int file = 0;    // index into files
  std::size_t begin = 0, end = 0; // its content in that file, in bytes
  int line = 0;                   // of its @unit line, from 1
  int content_line = 0;           // of its content's first line
};

// Lines of a source that the analysis didn't understand.
struct gSkippedRecord {
  std::string path;
  int first = 1, last = 1;
  std::string reason; // for readers
  std::string scope;  // name of what they stand in; empty for none
};

struct gSectionRecord {
  std::string style, output; // output: the base name of its file; empty if it stands in the .atc
  gNodeList head_left, head_right, foot_left, foot_right;
  int first_unit = 0, end_unit = 0; // indices into units
};

// A place that references can lead to: a unit's own label or a bookmark in its text.
struct gTarget {
  int unit = -1;        // -1: none
  std::string bookmark; // empty if the unit itself is meant

  explicit operator bool() const { return unit >= 0; }
};

struct gIndexEntry {
  std::string label;     // its bookmark; empty if the unit itself is the place
  std::string fields[5]; // text, key, text, second key, text
  int unit = -1;
};

// The whole content of one unit.
struct gUnitText {
  gNodeList toc_title, title, subject;
  gNodeList body; // blocks; bookmarks and index entries that stand between blocks, too
};

class gDocument {
public:
  std::string name; // of the .atc file
  std::map<std::string, std::string> wintypes;
  std::vector<std::unique_ptr<gAtcText>> files;
  std::vector<gSectionRecord> sections;
  std::vector<gSkippedRecord> skipped; // by sources
  std::vector<gUnitRecord> units;      // in the order of the document
  std::vector<gIndexEntry> index_entries;
  std::vector<std::string> help_ids; // bookmarks with <hid>, in their order
  std::vector<std::pair<std::string, gTarget>> help_aliases;

  // The first child and the next sibling by `parent`; -1 if there is none.
  std::vector<int> children_of(int unit) const; // -1 for the units at the top of all sections

  // The content of a unit. What is damaged in it was reported when the set was read.
  gUnitText text_of(int unit) const;

  // A label or bookmark, in any case.
  gTarget find_label(std::string_view label) const;
  // A name as an author writes it: bookmarks first, then units by the name or its tail, of several
  // the nearest to `from` in the outline.
  gTarget find_name(int from, std::string_view name) const;
  // The unit that a word in a declaration means, seen from a unit: -1 if none or if it is itself.
  int find_word(int from, std::string_view word) const;
  // The type or namespace with this whole name, the first of several; -1 if there is none.
  int find_type(std::string_view name) const;

private:
  friend class gAtcReader;
  // Makes the tables below, when all units are there.
  void make_tables();
  void make_tree();
  int nearest(int from, std::span<gHashIndex::Entry const> entries, std::string_view name) const;
  int type_in_scope(int from, std::string_view name) const;
  bool is_in_sight(int unit) const;
  void enter_name(int unit);
  int common_depth(int a, int b) const;

  std::vector<gTarget> bookmarks_;           // in their order
  gHashIndex labels_;                        // of units, then of bookmarks_, in upper case
  gHashIndex tails_;                         // names, and what stands behind a "::" or "." in them
  gHashIndex types_, type_tails_;            // the same of types: whole names, and tails
  std::vector<int> depths_;                  // how many units stand above each
  std::vector<int> child_starts_, children_; // by parent + 1
};
