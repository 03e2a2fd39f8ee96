// What a table says about its rows and columns.
#pragma once

#include <string_view>
#include <vector>

#include "conv/atc/node.h"

// Holds views into the node.
struct gTableShape {
  explicit gTableShape(gNode const & table);

  // Cells that a row is set with; short ones are filled up.
  std::size_t cells_of(gNode const & row) const;
  // The width of a column as the table gives it, such as "30%", "3cm" or "*".
  std::string_view width(std::size_t column) const {
    return column < widths.size() ? widths[column] : std::string_view();
  }

  std::vector<std::string_view> widths;
  std::size_t columns = 0; // also those that no width was given for
  std::vector<bool> marked_columns, marked_rows;
};
