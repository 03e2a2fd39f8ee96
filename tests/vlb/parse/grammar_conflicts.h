// The conflicts that were found when a grammar's tables were made.
#pragma once

#include <fstream>
#include <string>

// "N shift/reduce, M reduce/reduce" for the grammar in NAME.y; the test has to link to its library.
inline std::string grammar_conflicts(std::string const & name) {
  std::ifstream file(GRAMMAR_DIR "/" + name + ".conflicts");
  std::string line;
  std::getline(file, line);
  return line;
}
