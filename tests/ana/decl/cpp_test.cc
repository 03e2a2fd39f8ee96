// The reader of C and C++: a case a line, "source => declarations", "\n" for a line end. Groups are
// headed by "# name"; VELLUMAR_UPDATE=1 rewrites what is behind "=>".
#include "decl_text.h"

#include <gtest/gtest.h>

namespace Decl {

namespace {

std::string read(std::string const & source) {
  gMacroTable macros;
  macros.collect(source);
  return shown(source, read_cpp(source, macros));
}

TEST(CppReader, OneLineCases) {
  check_lines("cpp.cases", read);
}

} // namespace

} // namespace Decl
