// A small language for tests of units and the document: one command a line, see unit_script.cc.
#pragma once

#include <sstream>
#include <string>

#include "ana/anadat/tables.h"
#include "support/temp_folder.h"
#include "support/test_outside.h"

// Runs scripts against the tables of a run. Each run begins with the defaults that units need and
// ends with the reset of all tables.
class UnitScript {
public:
  // What the commands show, then the reports.
  std::string run(std::string const & script);

private:
  using Words = std::vector<std::string>;

  void command(Words const & words);
  void make_unit(Words const & words);
  void bind_code(Words const & words);
  void place(Words const & words);
  void show();
  gSyntUnit & synt() { return static_cast<gSyntUnit &>(*unit_); }

  std::string folder_;      // the output folder of the run
  cRef<gDocUnit> original_; // the unit made last
  cRef<gDocUnit> unit_;     // the one in hand: the original or a copy of it
  cRef<gOutState> state_;
  std::ostringstream out_;
};

// Pieces are parted by "|"; "\n" and "\t" stand for themselves.
std::string unmasked(std::string const & text);
gStrList pieces_of(std::string const & text);
std::string shown(gStrList const & list);
gStrList names_of(std::string const & text);
