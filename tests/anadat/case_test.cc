// Everything that small scripts and one-line expectations can show.
#include <gtest/gtest.h>

#include "support/case_file.h"
#include "unit_script.h"

namespace {

std::string on_subtext(std::string const & input) {
  std::istringstream lines(input);
  std::string operation, text;
  std::getline(lines, operation);
  std::getline(lines, text);
  gSubText pieces(pieces_of(text));
  gSubText const before = pieces;
  std::string const given = shown(before);
  std::istringstream words(operation);
  int n = 0, tab_width = 4;
  words >> operation >> n >> tab_width;
  if (operation == "norm")
    pieces.wsp_norm();
  else if (operation == "strip")
    pieces.strip_indent(n, tab_width);
  else if (operation == "add")
    pieces.add_indent(n);
  else
    return std::to_string(pieces.common_indent(n));
  EXPECT_EQ(shown(before), given) << "a list that shares the pieces has changed";
  return shown(pieces);
}

} // namespace

TEST(Cases, Subtext) {
  check_cases(CASE_DIR "/subtext.cases", on_subtext);
}

TEST(Cases, UnitModel) {
  UnitScript script;
  check_cases(CASE_DIR "/model.cases", [&](auto const & input) { return script.run(input); });
}

TEST(Cases, Emission) {
  UnitScript script;
  check_cases(CASE_DIR "/emission.cases", [&](auto const & input) { return script.run(input); });
}

TEST(Cases, Document) {
  UnitScript script;
  check_cases(CASE_DIR "/document.cases", [&](auto const & input) { return script.run(input); });
}

TEST(Cases, Hierarchy) {
  UnitScript script;
  check_cases(CASE_DIR "/hierarchy.cases", [&](auto const & input) { return script.run(input); });
}
