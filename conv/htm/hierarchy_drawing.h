// Where the boxes and lines of a drawn class hierarchy stand, in pixels.
#pragma once

#include "conv/set/hierarchy_graph.h"

struct gDrawnBox {
  int x = 0, y = 0, width = 0;
  std::string text; // as much of the name as is shown
};

struct gDrawing {
  static constexpr int box_height = 28;

  gHierarchyGraph graph;
  std::vector<gDrawnBox> boxes; // one for each node
  int width = 0, height = 0;
};

namespace Hierarchy {
// From the bases at the left to the derived classes at the right; within a column a class stands
// near those that it belongs to.
gDrawing draw(gNodeList const & steps);
} // namespace Hierarchy
