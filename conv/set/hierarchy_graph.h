// Class hierarchies as graphs: each class once, however many ways lead to it.
#pragma once

#include <vector>

#include "conv/atc/node.h"

struct gHierarchyNode {
  gNode const * step = nullptr;
  int layer = 0; // 0: the class itself; negative above it, positive below
};

struct gHierarchyEdge {
  std::size_t above = 0, below = 0; // nodes
  gNode const * step = nullptr;     // tells how the one is derived from the other; may be null
};

struct gHierarchyGraph {
  std::vector<gHierarchyNode> nodes; // in the order of the steps
  std::vector<gHierarchyEdge> edges; // each leads to a greater layer, but for circles
};

namespace Hierarchy {
gHierarchyGraph graph(gNodeList const & steps);
} // namespace Hierarchy
