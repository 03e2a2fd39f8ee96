// The state of the output commands is plain data; only the looks of units are made on demand.
#include "ana/anadat/goutstate.h"

cRef<gUnitLook const> gOutState::unit_look(gString const & unit_type) {
  cRef<gUnitLook const> & look = looks_[{section_template, unit_type}];
  if (!look)
    look = cRef<gUnitLook const>(new gUnitLook(section_template, unit_type));
  return look;
}
