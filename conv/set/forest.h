// Things that stand below each other, as lists of children.
#pragma once

#include <span>
#include <vector>

class gForest {
public:
  gForest() = default;
  // For each thing the one that it stands below; -1 for those at the top.
  explicit gForest(std::vector<int> parents);

  // In their order; -1 for those at the top.
  std::span<int const> children(int parent) const {
    auto const at = static_cast<std::size_t>(parent + 1);
    return std::span(children_).subspan(begin_[at], begin_[at + 1] - begin_[at]);
  }
  int parent(int child) const { return parents_[static_cast<std::size_t>(child)]; }
  int size() const { return static_cast<int>(parents_.size()); }
  // How many stand below it, on all levels.
  int below(int parent) const { return below_[static_cast<std::size_t>(parent + 1)]; }
  // From the top down to the thing itself.
  std::vector<int> path(int thing) const;

private:
  std::vector<int> parents_, children_, below_;
  std::vector<std::size_t> begin_;
};
