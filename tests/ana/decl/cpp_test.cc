// The reader of C and C++: a case a line, "source => declarations", "\n" for a line end. Groups are
// headed by "# name"; VELLUMAR_UPDATE=1 rewrites what is behind "=>".
#include "decl_text.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

namespace Decl {

namespace {

std::string with_line_ends(std::string source) {
  for (std::size_t at = source.find("\\n"); at != source.npos; at = source.find("\\n", at))
    source.replace(at, 2, "\n");
  return source;
}

std::string read(std::string const & source) {
  gMacroTable macros;
  macros.collect(source);
  return shown(source, read_cpp(source, macros));
}

TEST(CppReader, OneLineCases) {
  std::string const path = CASE_DIR "/cpp.cases";
  std::ifstream file(path);
  std::ostringstream rewritten;
  std::string line;
  int cases = 0;
  for (int number = 1; std::getline(file, line); ++number) {
    std::size_t const arrow = line.find(" => ");
    if (line.empty() || line.starts_with("# ") || arrow == line.npos) {
      rewritten << line << '\n';
      continue;
    }
    ++cases;
    std::string const source = line.substr(0, arrow);
    std::string const got = read(with_line_ends(source));
    if (!std::getenv("VELLUMAR_UPDATE")) {
      EXPECT_EQ(got, line.substr(arrow + 4)) << path << ":" << number << ": " << source;
    }
    rewritten << source << " => " << got << '\n';
  }
  EXPECT_GT(cases, 0);
  if (std::getenv("VELLUMAR_UPDATE"))
    std::ofstream(path) << rewritten.str();
}

} // namespace

} // namespace Decl
