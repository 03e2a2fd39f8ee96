// Marks wait until a paragraph comes, however deep the blocks in front of it end.

#include "conv/rtf/rtf_marks.h"

#include <iterator>

namespace {

bool has_blocks(gNode const & item) {
  return !item.children.empty() && item.children.front().kind >= gNodeKind::paragraph;
}

void put_in_front(gNodeList & marks, gNodeList & nodes) {
  nodes.insert(nodes.begin(), std::make_move_iterator(marks.begin()),
               std::make_move_iterator(marks.end()));
  marks.clear();
}

// Marks that no paragraph has taken yet go on behind the blocks.
void sink(gNodeList & blocks, gNodeList & marks) {
  using enum gNodeKind;
  gNodeList sunk;
  for (gNode & node : blocks) {
    if (node.kind < paragraph) {
      marks.push_back(std::move(node));
      continue;
    }
    if (node.kind == subentry || node.kind == enumeration || node.kind == numbering ||
        (node.kind == item && has_blocks(node)))
      sink(node.children, marks);
    else if (node.kind <= subtitle || node.kind == item)
      put_in_front(marks, node.children);
    sunk.push_back(std::move(node));
  }
  blocks = std::move(sunk);
}

} // namespace

void Rtf::sink_marks(gNodeList & blocks) {
  gNodeList marks;
  sink(blocks, marks);
  if (marks.empty())
    return;
  blocks.emplace_back().kind = gNodeKind::paragraph;
  put_in_front(marks, blocks.back().children);
}
