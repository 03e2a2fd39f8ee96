// Pieces of a text that no author wrote.
#pragma once

#include <utility>

#include "conv/atc/node.h"

namespace NewNode {

inline gNode of(gNodeKind kind, gNodeList children = {}) {
  gNode node;
  node.kind = kind;
  node.children = std::move(children);
  return node;
}

inline gNode text(std::string words) {
  gNode node = of(gNodeKind::text);
  node.text = std::move(words);
  return node;
}

inline gNode code(std::string words) {
  return of(gNodeKind::tt, {text(std::move(words))});
}

} // namespace NewNode
