// Class hierarchies as lists in lists.
#pragma once

#include <functional>

#include "conv/atc/node.h"

// One place of the tree.
struct gHierarchyItem {
  gNode const * step = nullptr; // the class
  gNode const * edge = nullptr; // the step that tells how it derives from the one above; or null
  int depth = 1;
  std::string_view items; // finished: what stands below it
};

namespace Hierarchy {

using gSetItem = std::function<void(gHierarchyItem const &, std::string & out)>;

// Sets the steps as a tree, bases above what derives from them. A class with several bases stands
// below each, and only below the last one with what derives from it: so nothing is said that isn't
// true, and the tree doesn't grow beyond one item for each step.
void set(gNodeList const & steps, gSetItem const & set_item, std::string & out);

// The class itself and those nearest to it, `most` steps in all. Each of them keeps its way to the
// class.
gNodeList nearest(gNodeList const & steps, std::size_t most);

} // namespace Hierarchy
