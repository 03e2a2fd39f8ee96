// What the macros of a text stand for where the target has no fields of its own.

#include "conv/set/setter.h"
#include "vlb/witness.h"

std::string gSetter::macro_text(std::string_view name) {
  if (name == "cur_file")
    return document_.name;
  if (name == "cur_date")
    return Vlb::moment_text("%Y-%m-%d");
  if (name == "cur_time")
    return Vlb::moment_text("%H:%M");
  return {};
}
