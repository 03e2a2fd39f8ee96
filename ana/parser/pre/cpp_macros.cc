// The table is filled anew for each file: options are read where a file begins.
#include "ana/parser/pre/cpp_macros.h"

#include "app/options/options.h"

void gCppMacroTable::load() {
  macros_.clear();
  cRef<cObj> const option = Vapp::option("cppmacros");
  cMapObj const * map = option ? option->map() : nullptr;
  if (!map)
    return;
  gCppMacro macro;
  for (cIterObj it = map->begin(); it.valid(); ++it)
    if (cat::read(it.valref(), macro))
      macros_.set(it.key_as_string(), macro);
}
