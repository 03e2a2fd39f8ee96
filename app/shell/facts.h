// What the enabling of commands depends on.
#pragma once

#include "app/options/options.h"
#include "app/options/project.h"

namespace Shell {

inline bool project_open() {
  return Vapp::project().is_open();
}
// No run and no conversion.
inline bool idle() {
  return !Vapp::ana_active && !Vapp::output_active;
}

} // namespace Shell
