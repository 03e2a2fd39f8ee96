// Words of program text that mean one thing alone in all of the documentation.
#pragma once

#include <string_view>
#include <unordered_map>

#include "conv/htm/site.h"

// Types and macros whose names nothing else has, and which look like names of such: a variable
// called "file" must not lead to a class of that name.
class gKnownWords {
public:
  explicit gKnownWords(gSite const & site);

  // The unit; -1 for all other words.
  int unit_of(std::string_view word) const;

private:
  std::unordered_map<std::string_view, int> units_; // -1 for what has several meanings
};
