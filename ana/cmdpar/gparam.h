// Actual and formal parameters of the commands.
#pragma once

#include <map>
#include <set>
#include <vector>

#include "ana/anadat/goutstate.h"
#include "store/ghash.h"
#include "vlb/greport.h"
#include "vlb/gsrcfile.h"
#include "vlb/gstrlist.h"

enum class gParamKind { simple = 0, list = 1, predicate = 2, text = 3 };

// "simple", "list", "predicate", "text".
gString param_kind_name(gParamKind kind);

// One actual parameter; only the field of its kind is used (`list` for list and text).
struct gParam {
  gParamKind kind = gParamKind::simple;
  gString text;
  gStrList list;
  gPredicate predicate;

  static gParam make_simple(gString text);
  static gParam make_list(gStrList list);
  static gParam make_predicate(gPredicate predicate);
  static gParam make_text(gStrList pieces);
};

// The actual parameters of one command: positional ones in order, and options by name.
struct gParamList {
  std::vector<gParam> params;
  struct Option {
    gString value;
    gLoc loc;
  };
  std::map<gString, Option> options;

  // A repeated option reports an INFO at the place of the earlier one and replaces it.
  void add_option(gString const & name, gString const & value, gLoc const & loc,
                  gReportSink & reports);
  // Empty if the option isn't there.
  gString option(std::string_view name) const;
  bool has_option(std::string_view name) const;
  // The pieces of the positional parameter `n`, from 0; empty if there is none.
  gStrList const & pieces(std::size_t n) const;
  // The word of the positional parameter `n`; empty if there is none.
  gString const & word(std::size_t n) const;
};

// The formal parameters of a command; never changes once the table is built.
struct gFParList : cShared {
  struct Formal {
    gParamKind kind;
    bool optional = false;
  };
  std::vector<Formal> params;
  std::map<gString, std::set<gString>> options; // an empty set allows any value
};

// From the name of a command, without "@", to its formal parameters.
class gCmdDefTable : public gGlobalHash<cRef<gFParList>> {
public:
  gCmdDefTable();
  void reset() override {} // the same for every run
};
extern gCmdDefTable gCmdDefs;
