// The grammar of C/C++ declarations; its tables and actions are made of cpp_l.y.
#pragma once

#include "ana/parser/cpp/cpp_parse_base.h"
#include "vlb/parse/lalr.h"

class cpp_parse : public cpp_parse_base {
public:
  using cpp_parse_base::cpp_parse_base;
  int parse() override { return run_lalr(*this); }

  static gLalrTables const & tables();
  // The action of a rule: from the values of its symbols to that of its left side.
  bool reduce(int rule, Value * rhs, Value & result);
};
