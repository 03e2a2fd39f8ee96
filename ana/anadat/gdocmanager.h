// The growing document.
#pragma once

#include "ana/anadat/gdoctable.h"
#include "store/gglobalobj.h"

class gDocManagerObj : public gGlobalObj {
public:
  void init() override;
  void reset() override;

  // A section goes to the root, and a first node of level 1 is opened in it.
  void open_section(cRef<gDocNode> const & header);
  // Opens a node of this level, 1 to 7, with nodes for the levels that were skipped.
  void set_level(int n);
  // Puts a unit into the current node. Its name and flags stay as they are from here on.
  void add_unit(cRef<gDocUnit> const & unit);
  // The same, and the unit becomes the current node, one level deeper.
  void push_unit(cRef<gDocUnit> const & unit);
  void pop_unit();
  // How many units can become the current node within each other.
  int levels_left() const { return static_cast<int>(outline_.size()) - 1 - levels_.back(); }

  void register_unit(cRef<gDocUnit> const & unit) { doc_table_.add(*unit); }
  // The target of a reference from a unit at `from`: a bookmark of that name, else the label of
  // the nearest unit under that name or name tail.
  bool resolve_reference(gOutline const & from, gString const & name, gString & target) const;

  // The nearest unit under that name or name tail; null if there is none.
  gDocUnit const * find_unit(gOutline const & from, std::string_view name) const {
    return doc_table_.nearest(from, name);
  }

  gDocNode & root() { return root_; }
  int unit_count() const { return unit_count_; }
  gOutline const & outline() const { return outline_; }

  // A file of the set couldn't be written to its end (gAtcFile): the run has failed.
  void set_write_failed() { write_failed_ = true; }
  bool write_failed() const { return write_failed_; }

private:
  void place(cRef<gDocUnit> const & unit);
  void open_node(int depth);
  void count_at(int depth);
  static void check_depth(int depth);

  gDocNode root_;
  std::array<cRef<gDocNode>, 8> level_nodes_;
  cRef<gDocNode> current_;
  std::vector<int> levels_ = {0};
  gDocTable doc_table_;
  gOutline outline_{};
  int unit_count_ = 0;
  bool write_failed_ = false;
};
