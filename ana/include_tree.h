// The parts of Pascal units that lie in other folders than what takes them in.
#pragma once

#include <list>
#include <map>
#include <optional>
#include <vector>

#include "vlb/gsrcfile.h"

// A compiler is told where they are; here they are looked for in the folders of the inputs and
// below them. Nothing is looked at before the first question.
class gIncludeTree {
public:
  // `inputs` have to outlive this.
  explicit gIncludeTree(std::list<gSrcFile> const & inputs) : inputs_(inputs) {}

  // `name` may have folders and lack its extension. Of several files of that name the one that lies
  // nearest to `by`; empty if there is none.
  gPathstring find(std::string const & name, gPathstring const & by);

private:
  using gPaths = std::map<std::string, std::vector<gPathstring>>; // by names in lower case
  gPaths const & paths();

  std::list<gSrcFile> const & inputs_;
  std::optional<gPaths> paths_;
};
