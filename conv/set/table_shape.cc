// Widths are a list with commas, marks are lists of numbers from 1, "first" and "last".

#include "conv/set/table_shape.h"

#include <algorithm>
#include <charconv>

namespace {

// More columns than any page can hold; a damaged table must not be filled up with cells for ever.
constexpr std::size_t max_filled = 64;

std::vector<std::string_view> split(std::string_view list) {
  std::vector<std::string_view> parts;
  while (!list.empty()) {
    std::size_t const end = std::min(list.find(','), list.size());
    std::string_view part = list.substr(0, end);
    while (part.starts_with(' '))
      part.remove_prefix(1);
    while (part.ends_with(' '))
      part.remove_suffix(1);
    parts.push_back(part);
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return parts;
}

std::vector<bool> marks(std::string_view list, std::size_t count) {
  std::vector<bool> marked(count);
  for (std::string_view const part : split(list)) {
    std::size_t number = 0;
    if (part == "first")
      number = 1;
    else if (part == "last")
      number = count;
    else
      std::from_chars(part.data(), part.data() + part.size(), number);
    if (number >= 1 && number <= count)
      marked[number - 1] = true;
  }
  return marked;
}

} // namespace

gTableShape::gTableShape(gNode const & table) : widths(split(table.param(1))) {
  columns = widths.size();
  for (gNode const & row : table.children)
    columns = std::max(columns, row.children.size());
  marked_columns = marks(table.param(2), columns);
  marked_rows = marks(table.param(3), table.children.size());
}

std::size_t gTableShape::cells_of(gNode const & row) const {
  return std::max(row.children.size(), std::min(columns, max_filled));
}
