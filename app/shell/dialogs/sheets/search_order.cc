// The rows always stand in the order of trial, so a position is an index, and a stable sort by rank
// is all that a change needs.
#include "app/shell/dialogs/sheets/search_order.h"

#include <algorithm>
#include <array>

gSearchOrder::gSearchOrder(std::vector<int> const & order, std::vector<int> const & ranks) {
  std::array<int, methods + 1> position;
  std::array<int, methods + 1> rank{};
  position.fill(-1);
  std::array<bool, methods> taken{};
  for (std::size_t i = 0; i < order.size() && i < methods; ++i) {
    int const number = order[i];
    if (number < 1 || number > methods)
      continue;
    position[number] = static_cast<int>(i);
    rank[number] = i < ranks.size() ? std::clamp(ranks[i], 0, highest_rank) : 0;
  }
  for (int number = 1; number <= methods; ++number)
    if (position[number] >= 0)
      taken[position[number]] = true;
  for (int number = 1; number <= methods; ++number) {
    if (position[number] < 0) {
      auto const next = std::find(taken.begin(), taken.end(), false);
      position[number] = static_cast<int>(next - taken.begin());
      *next = true;
    }
    rows_.push_back({number, rank[number]});
  }
  std::sort(rows_.begin(), rows_.end(), [&](Method const & a, Method const & b) {
    return position[a.number] < position[b.number];
  });
  sort();
}

void gSearchOrder::sort() {
  std::stable_sort(rows_.begin(), rows_.end(),
                   [](Method const & a, Method const & b) { return a.rank > b.rank; });
}

int gSearchOrder::move(int row, int step) {
  int const count = static_cast<int>(rows_.size());
  int const other = row + step;
  bool const both = row >= 0 && row < count && other >= 0 && other < count;
  if (!both || rows_[row].rank != rows_[other].rank)
    return row;
  std::swap(rows_[row], rows_[other]);
  return other;
}

int gSearchOrder::change_rank(int row, int step) {
  if (row < 0 || row >= static_cast<int>(rows_.size()))
    return row;
  int const number = rows_[row].number;
  rows_[row].rank = std::clamp(rows_[row].rank + step, 0, highest_rank);
  sort();
  auto const now = std::find_if(rows_.begin(), rows_.end(),
                                [&](Method const & method) { return method.number == number; });
  return static_cast<int>(now - rows_.begin());
}

std::vector<int> gSearchOrder::order() const {
  std::vector<int> order;
  for (Method const & method : rows_)
    order.push_back(method.number);
  return order;
}

std::vector<int> gSearchOrder::ranks() const {
  std::vector<int> ranks;
  for (Method const & method : rows_)
    ranks.push_back(method.rank);
  return ranks;
}
