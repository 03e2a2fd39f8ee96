// Which Pascal units use which.
#pragma once

#include <map>

#include "conv/htm/site.h"

class gUses {
public:
  // Reads the sources of the document's units once; those that can't be read use nothing.
  explicit gUses(gSite const & site);

  // For the page of a Pascal unit: finished text, else empty.
  std::string of(int unit) const;

private:
  void read(int unit);
  void add(std::string_view what, std::vector<std::string> const & names, int page,
           std::string & out) const;

  gSite const & site_;
  std::map<std::string, int> units_; // that have pages, by their names in lower case
  std::map<int, std::vector<std::string>> uses_, used_by_;
};

namespace Uses {
// The names in the uses clauses of a text, each once.
std::vector<std::string> names_in(std::string_view text);
} // namespace Uses
