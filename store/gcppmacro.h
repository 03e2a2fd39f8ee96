// How a macro of the sources is treated.
#pragma once

#include <iosfwd>

#include "vlb/gstring.h"

struct gCppMacro {
  gString name;
  bool parameterized = false;
  int action = 0;
  int interpretation = 0;

  friend bool operator==(gCppMacro const & a, gCppMacro const & b) {
    return a.name == b.name && a.parameterized == b.parameterized && a.action == b.action &&
           a.interpretation == b.interpretation;
  }
};

// The four fields, with one blank between two; the name must hold no white space.
std::ostream & operator<<(std::ostream & out, gCppMacro const & macro);
std::istream & operator>>(std::istream & in, gCppMacro & macro);
