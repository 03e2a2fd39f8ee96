// A place in the program's own source, for diagnostics.
#pragma once

#include "vlb/gstring.h"

namespace Vlb {

// "file(line)", without the folder: the text must not depend on where the program was built.
inline gString source_place(std::string_view file, int line) {
  gString place(file.substr(file.rfind('/') + 1));
  place += "(" + std::to_string(line) + ")";
  return place;
}

} // namespace Vlb
