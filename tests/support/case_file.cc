#include "support/case_file.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

std::vector<Case> read_cases(std::string const & path) {
  std::ifstream file(path);
  EXPECT_TRUE(file) << path;
  std::vector<Case> cases;
  std::string * part = nullptr;
  std::string line;
  for (int number = 1; std::getline(file, line); ++number) {
    if (line.starts_with("== ")) {
      cases.push_back({line.substr(3), "", "", number});
      part = &cases.back().input;
    } else if (line == "--" && part == &cases.back().input) {
      part = &cases.back().expected;
    } else if (part) {
      *part += line + "\n";
    }
  }
  return cases;
}

namespace {

std::string with_line_end(std::string text) {
  if (!text.empty() && text.back() != '\n')
    text += '\n';
  return text;
}

std::string decoded(std::string input) {
  if (input.ends_with("\\e\n"))
    input.resize(input.size() - 3);
  return input;
}

} // namespace

void check_cases(std::string const & path,
                 std::function<std::string(std::string const & input)> const & answer) {
  bool const update = std::getenv("VELLUMAR_UPDATE") != nullptr;
  std::vector<Case> cases = read_cases(path);
  EXPECT_FALSE(cases.empty()) << path;
  std::ostringstream rewritten;
  for (Case & one : cases) {
    std::string const got = with_line_end(answer(decoded(one.input)));
    if (update)
      rewritten << "== " << one.name << "\n" << one.input << "--\n" << got;
    else
      EXPECT_EQ(got, one.expected) << path << ":" << one.line << ": " << one.name;
  }
  if (update)
    std::ofstream(path) << rewritten.str();
}
