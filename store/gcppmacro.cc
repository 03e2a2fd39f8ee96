#include "store/gcppmacro.h"

#include <istream>
#include <ostream>

std::ostream & operator<<(std::ostream & out, gCppMacro const & macro) {
  return out << static_cast<std::string const &>(macro.name) << ' ' << (macro.parameterized ? 1 : 0)
             << ' ' << macro.action << ' ' << macro.interpretation;
}

std::istream & operator>>(std::istream & in, gCppMacro & macro) {
  gCppMacro read;
  in >> static_cast<std::string &>(read.name) >> read.parameterized >> read.action >>
      read.interpretation;
  if (in)
    macro = read;
  return in;
}
