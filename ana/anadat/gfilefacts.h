// What one file says, as its reading leaves it. Values alone: nothing here has a running number or
// stands in a table, so a file can be read on any thread, by itself, or come from a cache. What
// concerns several files is settled when the facts are entered, in file order.
#pragma once

#include <optional>

#include "ana/anadat/gbaseclause.h"
#include "ana/anadat/gcodeelem.h"
#include "ana/anadat/gsubtext.h"
#include "vlb/greport.h"

// How the reading of a part came to its end.
struct gReadEnd {
  bool failed = false;          // the parser gave up
  std::optional<gReport> fatal; // a fault that ended the reading
};

// A text unit. The texts are pieces of intermediate code.
struct gUnitFacts {
  struct Attribute {
    gString name, value;
  };
  struct Subentry {
    gString name;
    gSubText text;
  };

  // "undefined" if there is no such attribute.
  gString const & attribute(std::string_view name) const;
  void set_attribute(gString const & name, gString const & value);
  // Appends to a subentry, or makes it.
  void add_subentry(gString const & name, gStrList text);

  bool is_text = false; // a continuous text
  bool is_named = false;
  gLinePlace place;
  gStrList names;
  gString name_sep;
  gString style;
  std::vector<Attribute> attributes;
  std::vector<Subentry> subentries;
  gStrList headline;
  gStrList link_line;
  int flags = 31; // gDocUnit::Flag
  int hier_up = -2, hier_down = -2;
  // Which of the file's units and labels these are, from 0; units that a fault lost count too.
  int number = 0;
  int label = 0;
};

// A stretch of the source that texts can quote.
struct gCitationFacts {
  gString name;
  int first_line = 0, last_line = 0; // last_line included
};

struct gTextFacts {
  // Sets unit_lines.
  void note_lines();

  std::vector<gUnitFacts> units;
  std::vector<gString> bookmarks; // in upper case, each once
  std::vector<gCitationFacts> citations;
  int units_made = 0, labels_made = 0;
  std::vector<int> unit_lines; // ascending
  gReportList reports{gRunStage::text_units};
  gReadEnd end;
};

struct gClassFacts {
  gString name;
  cRef<gBaseClause> bases;
};

// Why a comment is left out.
enum class gLeftOut : unsigned char {
  taken,       // it isn't
  in_body,     // a remark in a function
  in_code_out, // in code that is left out
  licence,
  tool_switch,
  drawing,   // no words
  dead_code, // code that is commented out
  nothing_near,
  another, // another comment documents the declaration
  heading, // of several declarations, each with a comment behind
};

// A comment that no text unit came from. One with a reason belongs to no declaration for sure; for
// the others one is searched.
struct gCommentFacts {
  gLinePlace place;
  int last_line = 0;
  gLeftOut left_out = gLeftOut::taken;
};

struct gCodeFacts {
  std::vector<cRef<gCodeElem>> elements;
  std::vector<gClassFacts> classes;
  std::vector<gCommentFacts> comments;
  gReportList reports{gRunStage::code};
  gReadEnd end;
};

// Code elements may name the text unit that belongs to them (gCodeElem::text).
struct gFileFacts {
  gSrcFile file;
  gTextFacts text;
  gCodeFacts code;
};

// Names of bookmarks (in upper case) and citations that other files have taken.
struct gTakenNames {
  std::vector<gString> bookmarks, citations;

  bool empty() const { return bookmarks.empty() && citations.empty(); }
};
