// Tables, row by row.

#include "conv/set/setter.h"
#include "conv/set/table_shape.h"

namespace {

std::string_view flag(bool on) {
  return on ? "1" : "";
}

std::string_view selector(bool marked) {
  return marked ? "head" : "";
}

} // namespace

void gSetter::set_table(gNode const & node, std::string & out) {
  using enum gVltValue;
  gTableShape const shape(node);
  std::string const wide = std::to_string(shape.columns);
  std::string const high = std::to_string(node.children.size());
  std::string rows;
  for (std::size_t r = 0; r < node.children.size(); ++r) {
    bool const marked = shape.marked_rows[r];
    std::string cells;
    set_cells(shape, node.children[r], marked, cells);
    std::string const index = std::to_string(r + 1);
    gVltValues values;
    values.set(items, cells).set(mark, flag(marked)).set(number, index);
    values.set(columns, wide).set(count, high);
    rules_.apply(gVltRule::row, selector(marked), values, rows);
  }
  std::string const shown_style = escaped(node.param(0));
  gVltValues values;
  values.set(items, rows).set(style, shown_style).set(columns, wide).set(count, high);
  rules_.apply(gVltRule::table, node.param(0), values, out);
}

void gSetter::set_cells(gTableShape const & shape, gNode const & row, bool marked,
                        std::string & out) {
  using enum gVltValue;
  std::string const wide = std::to_string(shape.columns);
  for (std::size_t c = 0; c < shape.cells_of(row); ++c) {
    std::string const inner = c < row.children.size() ? set(row.children[c].children) : "";
    std::string const index = std::to_string(c + 1);
    std::string const column = escaped(shape.width(c));
    gVltValues values;
    values.set(text, inner).set(mark, flag(marked || shape.marked_columns[c]));
    values.set(width, column).set(number, index).set(count, wide);
    rules_.apply(gVltRule::cell, selector(marked), values, out);
  }
}
