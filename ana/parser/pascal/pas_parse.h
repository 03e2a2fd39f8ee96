// The grammar of Pascal declarations; its tables and actions are made of pas_l.y.
#pragma once

#include "ana/parser/pascal/pas_parse_base.h"
#include "vlb/parse/lalr.h"

class pas_parse : public pas_parse_base {
public:
  using pas_parse_base::pas_parse_base;
  int parse() override { return run_lalr(*this); }

  static gLalrTables const & tables();
  // The action of a rule: from the values of its symbols to that of its left side.
  bool reduce(int rule, Value * rhs, Value & result);
};
