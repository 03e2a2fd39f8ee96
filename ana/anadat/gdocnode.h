// The tree of the document.
#pragma once

#include <ostream>
#include <vector>

#include "vlb/gpathstring.h"
#include "vlb/shared.h"

class gAtcFile;

// A node that owns its children, in order, and knows its parent.
template <class Node> class gNode : public cShared {
public:
  explicit gNode(Node * parent) : parent_(parent) {}
  // A copy stands nowhere yet, and takes no children along.
  gNode(gNode const & other) : cShared(other), parent_(nullptr) {}
  gNode & operator=(gNode const &) = delete;

  Node * parent() const { return parent_; }
  std::vector<cRef<Node>> const & children() const { return children_; }
  void add_child(cRef<Node> const & child) {
    child->parent_ = static_cast<Node *>(this);
    children_.push_back(child);
  }
  void remove_children() { children_.clear(); }

private:
  Node * parent_; // not owned; null for the root and for units outside a document
  std::vector<cRef<Node>> children_;
};

class gDocNode : public gNode<gDocNode> {
public:
  explicit gDocNode(gDocNode * parent = nullptr) : gNode(parent) {}

  // Writes the node and its children as intermediate code; throws gExcUserBreak at a break.
  virtual void emit(std::ostream & stream);
};

// The head of a section: its output name, empty for a section inside the .atc file, and the name
// of its section template.
class gSectHeader : public gDocNode {
public:
  gSectHeader(gString const & output, gString const & section_template);

  void emit(std::ostream & stream) override;
  virtual void write_head(std::ostream & stream);

  gString const & output() const { return output_; }
  gString const & section_template() const { return template_; }

private:
  void write_file(gAtcFile & file);

  gString output_;
  gString template_;
};

namespace Vlb {
// Path of the .atx file of a section's output name: below the output folder, extension "atx".
// Empty if the name leads out of the output folder.
gPathstring atx_path(gString const & output);
} // namespace Vlb
