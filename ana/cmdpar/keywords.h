// The vocabulary of the mark-up and of the script.
#pragma once

#include "ana/anadat/gattributes.h"
#include "store/ghash.h"

struct gPatternInput;
struct gRunInput;
struct gSubentryInput;

// What a source pattern says about the units that it opens.
struct gUnitPattern : cShared {
  enum Identifier { none = 0, unqualified = 1, complex = 2 };

  int idspec = none;
  int slspec = 0;   // lines that the subject line may take; 0 for none
  gString slsep;    // characters between identifier and subject line
  gAttributes attr; // set on a new unit
};

struct gKwd : cShared {
  enum Kind { synt_unit = 0, text_unit = 1, subentry_kwd = 2, command = 3 };

  gString name; // as written, with its "@" where it has one
  int kind = command;
  gString separators;         // one of them must follow; empty: none may. Not for commands
  int token = 0;              // commands only
  gString subentry;           // subentry keywords only
  cRef<gUnitPattern> pattern; // unit keywords only
};

// Keywords that open units and subentries, rebuilt from the input of each run.
class gUEKeywordTable : public gGlobalHash<cRef<gKwd>> {
public:
  virtual void build_keywords(gRunInput const & input);
  // The pattern of comments that open with "/**" or "(**", and with "///"; null while the source
  // pattern doesn't exist.
  cRef<gUnitPattern> const & star_pattern() const { return star_pattern_; }
  cRef<gUnitPattern> const & slash_pattern() const { return slash_pattern_; }
  void reset() override;

private:
  void add_pattern(gPatternInput const & input);
  void add_subentry(gSubentryInput const & input);

  cRef<gUnitPattern> star_pattern_, slash_pattern_;
};

// The commands by "@name": 79 that both languages share and, in scripts, those that texts don't
// know. Constant.
class gCommandTable : public gGlobalHash<cRef<gKwd>> {
public:
  enum class Language { text, script };
  explicit gCommandTable(Language language);
  void reset() override {}
};

// The names of the variables, such as "$name". Constant.
class gDocVarTable : public gGlobalHash<int> {
public:
  gDocVarTable();
  void reset() override {}
};

// Keyword text to token number. Constant.
class gCodeKeywordTable : public gGlobalHash<int> {
public:
  explicit gCodeKeywordTable(std::initializer_list<std::pair<char const *, int>> rows);
  void reset() override {}
};

extern gUEKeywordTable gUEKeywords;
extern gCommandTable gDocCommands;
extern gCommandTable gVlsCommands;
extern gDocVarTable gDocVars;
extern gCodeKeywordTable gCppKeywords;
extern gCodeKeywordTable gPasKeywords;
