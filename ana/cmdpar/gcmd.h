// The output commands of a script.
#pragma once

#include <span>
#include <vector>

#include "ana/anadat/gdocunit.h"
#include "ana/anadat/goutstate.h"
#include "ana/cmdpar/gunitselector.h"

// A command works on the state of the output and on gDocManager. Those that choose units share the
// selector of their script.
class gCmd : public cShared {
public:
  virtual void execute(cRef<gOutState> & state) = 0;
};

class gCmdSeq : public gCmd {
public:
  void append(cRef<gCmd> const & command) { commands_.push_back(command); }
  bool empty() const { return commands_.empty(); }
  void execute(cRef<gOutState> & state) override;

private:
  std::vector<cRef<gCmd>> commands_;
};

// Opens a section; an empty template becomes "STPL_Default".
class gSectionCmd : public gCmd {
public:
  gSectionCmd(gString const & output, gString const & section_template);
  void execute(cRef<gOutState> & state) override;

private:
  gString output_, template_;
};

class gHdlLevelCmd : public gCmd {
public:
  explicit gHdlLevelCmd(int level) : level_(level) {}
  void execute(cRef<gOutState> & state) override;

private:
  int level_;
};

class gFilterCmd : public gCmd {
public:
  explicit gFilterCmd(gPredicate const & predicate) : predicate_(predicate) {}
  void execute(cRef<gOutState> & state) override;

private:
  gPredicate predicate_;
};

class gNoFilterCmd : public gCmd {
public:
  explicit gNoFilterCmd(gString const & name) : name_(name) {}
  void execute(cRef<gOutState> & state) override;

private:
  gString name_;
};

class gFilterSortCmd : public gCmd {
public:
  explicit gFilterSortCmd(gSortMode mode) : mode_(mode) {}
  void execute(cRef<gOutState> & state) override;

private:
  gSortMode mode_;
};

class gPathFilterCmd : public gCmd {
public:
  gPathFilterCmd(gString const & text, cRef<gUnitSelector> const & selector)
      : text_(text),
        selector_(selector) {}
  void execute(cRef<gOutState> & state) override;

private:
  gString text_;
  cRef<gUnitSelector> selector_;
};

// Names of file groups stand for the files that the groups hold at the first execution.
class gFileFilterCmd : public gCmd {
public:
  gFileFilterCmd(gString const & text, gLoc const & loc, cRef<gUnitSelector> const & selector)
      : text_(text),
        loc_(loc),
        selector_(selector) {}
  void execute(cRef<gOutState> & state) override;

private:
  void expand();

  gString text_;
  gLoc loc_;
  cRef<gUnitSelector> selector_;
  bool expanded_ = false;
  std::list<gPathstring> entries_;
};

// Puts a headline unit into the document.
class gOutHdlCmd : public gCmd {
public:
  gOutHdlCmd(gStrList const & text, gStrList const & toc_text, gLoc const & loc)
      : text_(text),
        toc_text_(toc_text),
        loc_(loc) {}
  void execute(cRef<gOutState> & state) override;

private:
  gStrList text_, toc_text_;
  gLoc loc_;
};

class gOutUnitCmd : public gCmd {
public:
  gOutUnitCmd(gString const & name, gLoc const & loc) : name_(name), loc_(loc) {}
  void execute(cRef<gOutState> & state) override;

private:
  gString name_;
  gLoc loc_;
};

// Places all units that the filters select: one behind the other, below a headline for the file
// that declares them, or topics and pages below those that they are part of.
class gOutFilterCmd : public gCmd {
public:
  enum Order { flat, by_files, as_tree };
  gOutFilterCmd(Order order, gLoc const & loc, cRef<gUnitSelector> const & selector)
      : order_(order),
        loc_(loc),
        selector_(selector) {}
  void execute(cRef<gOutState> & state) override;

private:
  void place(std::span<cRef<gDocUnit> const> units, cRef<gOutState> & state);
  void place_by_files(std::vector<cRef<gDocUnit>> const & units, cRef<gOutState> & state);
  void place_as_tree(std::vector<cRef<gDocUnit>> const & units, cRef<gOutState> & state);

  Order order_;
  gLoc loc_;
  cRef<gUnitSelector> selector_;
};

class gOutClassCmd : public gCmd {
public:
  gOutClassCmd(gString const & name, cRef<gCmdSeq> const & inner, gLoc const & loc)
      : name_(name),
        inner_(inner),
        loc_(loc) {}
  void execute(cRef<gOutState> & state) override;

private:
  gString name_;
  cRef<gCmdSeq> inner_;
  gLoc loc_;
};

class gOutClassFilterCmd : public gCmd {
public:
  gOutClassFilterCmd(cRef<gCmdSeq> const & inner, gLoc const & loc,
                     cRef<gUnitSelector> const & selector)
      : inner_(inner),
        loc_(loc),
        selector_(selector) {}
  void execute(cRef<gOutState> & state) override;

private:
  cRef<gCmdSeq> inner_;
  gLoc loc_;
  cRef<gUnitSelector> selector_;
};
