// The parser of the text-unit language. For each file: reset(), set_input(), parse().
#pragma once

#include "ana/parser/doc/doc_parse_base.h"
#include "vlb/parse/lalr.h"

class doc_parse : public doc_parse_base {
public:
  using doc_parse_base::doc_parse_base;
  int parse() override { return run_lalr(*this); }

  // For the driver; made of the grammar.
  bool reduce(int rule, Value * rhs, Value & result);
  static gLalrTables const & tables();
};
