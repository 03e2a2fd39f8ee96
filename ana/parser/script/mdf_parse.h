// The parser of the script.
#pragma once

#include "ana/parser/script/mdf_parse_base.h"
#include "vlb/parse/lalr.h"

class mdf_parse : public mdf_parse_base {
public:
  using mdf_parse_base::mdf_parse_base;
  int parse() override { return run_lalr(*this); }

  // Made from the grammar.
  bool reduce(int rule, Value * rhs, Value & result);
  static gLalrTables const & tables();
};
