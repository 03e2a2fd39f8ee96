// The positions of a pattern: every byte set of the tree gets a position of its own (a counted part
// once for each count), and joining two parts says that the firsts of one follow the lasts of the
// other. No empty moves are left, so the automaton's states are plain sets of positions.
#include "vlb/parse/pattern.h"

namespace {

void append(std::vector<int> & to, std::vector<int> const & from) {
  to.insert(to.end(), from.begin(), from.end());
}

} // namespace

std::vector<int> gPositions::add(gPattern const & pattern, std::span<int const> parts, int rule,
                                 bool backwards) {
  Piece whole;
  for (int part : parts)
    whole = joined(std::move(whole), piece(pattern, part, backwards));
  Piece end = single({});
  positions_.back().rule = rule;
  return joined(std::move(whole), end).first;
}

gPositions::Piece gPositions::piece(gPattern const & pattern, int index, bool backwards) {
  gPatternNode const & node = pattern.nodes[static_cast<std::size_t>(index)];
  switch (node.kind) {
  case gPatternNode::empty:
    break;
  case gPatternNode::set:
    return single(node.bytes);
  case gPatternNode::sequence: {
    Piece front = piece(pattern, backwards ? node.right : node.left, backwards);
    return joined(std::move(front), piece(pattern, backwards ? node.left : node.right, backwards));
  }
  case gPatternNode::choice: {
    Piece both = piece(pattern, node.left, backwards);
    Piece const other = piece(pattern, node.right, backwards);
    both.nullable = both.nullable || other.nullable;
    append(both.first, other.first);
    append(both.last, other.last);
    return both;
  }
  case gPatternNode::repeat:
    return repeated(pattern, node, backwards);
  }
  return {};
}

gPositions::Piece gPositions::single(gByteSet const & bytes) {
  int const position = static_cast<int>(positions_.size());
  positions_.push_back({bytes, {}, -1});
  return {false, {position}, {position}};
}

gPositions::Piece gPositions::repeated(gPattern const & pattern, gPatternNode const & node,
                                       bool backwards) {
  Piece whole;
  bool const endless = node.high == gPatternNode::unlimited;
  for (int i = 0; i < node.low; ++i) {
    Piece body = piece(pattern, node.left, backwards);
    bool const loops = endless && i == node.low - 1;
    whole = joined(std::move(whole), loops ? looped(std::move(body)) : body);
  }
  if (endless && node.low == 0)
    whole = looped(piece(pattern, node.left, backwards));
  for (int i = node.low; i < node.high; ++i) {
    Piece body = piece(pattern, node.left, backwards);
    body.nullable = true;
    whole = joined(std::move(whole), body);
  }
  whole.nullable = whole.nullable || node.low == 0;
  return whole;
}

gPositions::Piece gPositions::looped(Piece body) {
  for (int position : body.last)
    append(positions_[static_cast<std::size_t>(position)].follow, body.first);
  return body;
}

gPositions::Piece gPositions::joined(Piece left, Piece const & right) {
  for (int position : left.last)
    append(positions_[static_cast<std::size_t>(position)].follow, right.first);
  if (left.nullable)
    append(left.first, right.first);
  if (right.nullable)
    append(left.last, right.last);
  else
    left.last = right.last;
  left.nullable = left.nullable && right.nullable;
  return left;
}
