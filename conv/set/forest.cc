// The children of all things lie in one list, one behind the other.

#include "conv/set/forest.h"

#include <algorithm>

gForest::gForest(std::vector<int> parents)
    : parents_(std::move(parents)),
      children_(parents_.size()),
      below_(parents_.size() + 1),
      begin_(parents_.size() + 2) {
  for (int const parent : parents_)
    ++begin_[static_cast<std::size_t>(parent + 2)];
  for (std::size_t i = 1; i < begin_.size(); ++i)
    begin_[i] += begin_[i - 1];
  std::vector<std::size_t> next(begin_.begin(), begin_.end() - 1);
  for (int child = 0; child < size(); ++child)
    children_[next[static_cast<std::size_t>(parent(child) + 1)]++] = child;
  // A parent always comes in front of its children.
  for (int child = size() - 1; child >= 0; --child)
    below_[static_cast<std::size_t>(parent(child) + 1)] += 1 + below(child);
}

std::vector<int> gForest::path(int thing) const {
  std::vector<int> result;
  for (; thing >= 0; thing = parent(thing))
    result.push_back(thing);
  std::ranges::reverse(result);
  return result;
}
