// Case files: many small cases of input and expected lines in one text file.
#pragma once

#include <functional>
#include <string>
#include <vector>

// In the file a case is
//   == the fault that it would catch
//   input lines
//   --
//   expected lines
// The input keeps its line ends; "\e" at the end of an input's last line stands for "no line end".
struct Case {
  std::string name;
  std::string input;
  std::string expected;
  int line; // of its name in the file
};

std::vector<Case> read_cases(std::string const & path);

// Runs each case of CASE_DIR/file through `answer` and compares; with VELLUMAR_UPDATE=1 in the
// environment the file is rewritten with the answers instead, for a reviewer to read the diff.
void check_cases(std::string const & path,
                 std::function<std::string(std::string const & input)> const & answer);
