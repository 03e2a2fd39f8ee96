// Pages are stretches of the units in their order.

#include "conv/htm/pages.h"

std::vector<bool> gPages::begins(gDocument const & document, int split) {
  std::vector<gUnitRecord> const & units = document.units;
  std::vector<bool> result(units.size());
  for (std::size_t i = 0; i < units.size(); ++i)
    result[i] = units[i].level <= split || i == 0 || units[i - 1].section != units[i].section;
  for (std::size_t first = 0, end = 0; first < units.size(); first = end) {
    for (end = first + 1; end < units.size() && !result[end];)
      ++end;
    split_long_list(document, static_cast<int>(first), static_cast<int>(end), result);
  }
  return result;
}

void gPages::split_long_list(gDocument const & document, int first, int end,
                             std::vector<bool> & begins) {
  std::vector<gUnitRecord> const & units = document.units;
  if (end - first <= most_units || !units[static_cast<std::size_t>(first)].declaration.empty())
    return;
  long_lists_.insert(first);
  for (auto unit = static_cast<std::size_t>(first) + 1; unit < static_cast<std::size_t>(end);
       ++unit)
    if (units[unit].parent == first)
      begins[unit] = true;
}

gPages::gPages(gDocument const & document, int split) : of_(document.units.size()) {
  std::vector<bool> const begins_page = begins(document, split);
  std::vector<int> unit_parents, page_parents;
  unit_parents.reserve(of_.size());
  for (int unit = 0; unit < static_cast<int>(of_.size()); ++unit) {
    gUnitRecord const & record = document.units[static_cast<std::size_t>(unit)];
    if (begins_page[static_cast<std::size_t>(unit)]) {
      pages_.push_back({unit, unit});
      page_parents.push_back(record.parent < 0 ? -1 : of(record.parent));
    }
    pages_.back().end = unit + 1;
    of_[static_cast<std::size_t>(unit)] = size() - 1;
    unit_parents.push_back(record.parent);
  }
  tree_ = gForest(std::move(page_parents));
  units_ = gForest(std::move(unit_parents));
}

int gPages::depth(int unit) const {
  int depth = 0;
  for (int above = units_.parent(unit); above >= 0 && of(above) == of(unit);
       above = units_.parent(above))
    ++depth;
  return depth;
}
