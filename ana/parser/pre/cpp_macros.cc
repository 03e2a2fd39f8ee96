// The table is filled anew for each file: options are read where a file begins.
#include "ana/parser/pre/cpp_macros.h"

#include "ana/anadat/input_table.h"

void gCppMacroTable::load() {
  macros_.clear();
  for (auto const & [name, macro] : gInput->macros)
    macros_.set(name, macro);
}
