// The user's macros, as the preprocessor and the scanner of C/C++ look them up.
#pragma once

#include "store/gcppmacro.h"
#include "store/ghash.h"

class gCppMacroTable {
public:
  // What the comment preprocessor does with a macro.
  enum Action { keep = 0, remove = 1, keep_params = 2 };
  // What a macro that is left stands for in the code.
  enum Code { identifier = 0, declaration = 1 };

  // Takes over the macros of the run.
  void load();
  // Most projects have none: the scanners then use rules that ask nothing.
  bool empty() const { return macros_.empty(); }
  // Null if the name is no macro.
  gCppMacro const * find(std::string_view name) const { return macros_.lookup(name); }

private:
  gHash<gCppMacro> macros_;
};
