// The document grows at one place, the current node; the outline counts how far it has come at each
// depth.
#include "ana/anadat/gdocmanager.h"

#include <algorithm>

#include "ana/anadat/tables.h"
#include "vlb/gexception.h"

void gDocManagerObj::init() {
  levels_ = {0};
  unit_count_ = 0;
}

void gDocManagerObj::reset() {
  root_.remove_children();
  level_nodes_ = {};
  current_ = nullptr;
  levels_ = {0};
  doc_table_.clear();
  outline_ = {};
  unit_count_ = 0;
  write_failed_ = false;
}

void gDocManagerObj::check_depth(int depth) {
  int const deepest = static_cast<int>(gOutline().size()) - 1;
  if (depth < 0 || depth > deepest)
    throw gExcRange(depth, 0, deepest);
}

void gDocManagerObj::count_at(int depth) {
  ++outline_[depth];
  std::fill(outline_.begin() + depth + 1, outline_.end(), 0);
}

void gDocManagerObj::open_section(cRef<gDocNode> const & header) {
  root_.add_child(header);
  levels_.back() = 0;
  count_at(0);
  level_nodes_[0] = current_ = header;
  set_level(1);
}

void gDocManagerObj::open_node(int depth) {
  VLB_ASSERT(level_nodes_[depth - 1]);
  auto node = make_ref<gDocNode>();
  level_nodes_[depth - 1]->add_child(node);
  level_nodes_[depth] = node;
  count_at(depth);
}

void gDocManagerObj::set_level(int n) {
  check_depth(n);
  VLB_ASSERT(n >= 1);
  for (int k = levels_.back() + 1; k < n; ++k)
    open_node(k);
  open_node(n);
  current_ = level_nodes_[n];
  levels_.back() = n;
}

void gDocManagerObj::place(cRef<gDocUnit> const & unit) {
  VLB_ASSERT(current_);
  unit->set_outline(outline_);
  current_->add_child(unit);
  register_unit(unit);
}

void gDocManagerObj::add_unit(cRef<gDocUnit> const & unit) {
  place(unit);
  ++unit_count_;
}

void gDocManagerObj::push_unit(cRef<gDocUnit> const & unit) {
  int const depth = levels_.back() + 1;
  check_depth(depth);
  place(unit);
  levels_.push_back(depth);
  count_at(depth);
  level_nodes_[depth] = current_ = unit;
  ++unit_count_;
}

void gDocManagerObj::pop_unit() {
  VLB_ASSERT(levels_.size() > 1);
  levels_.pop_back();
  int const depth = levels_.back();
  std::fill(outline_.begin() + depth + 1, outline_.end(), 0);
  current_ = level_nodes_[depth];
}

bool gDocManagerObj::resolve_reference(gOutline const & from, gString const & name,
                                       gString & target) const {
  gString upper = Vlb::to_upper(name);
  if (gBookmarks.contains(upper)) {
    target = std::move(upper);
    return true;
  }
  gDocUnit const * unit = doc_table_.nearest(from, name);
  if (unit)
    target = unit->label();
  return unit != nullptr;
}
