// A row of RTF begins with its definition: where each cell ends and what its border looks like. The
// looks are settings of the script, of which those for the table's style come first.

#include <algorithm>

#include "conv/rtf/rtf_columns.h"
#include "conv/rtf/rtf_setter.h"
#include "conv/rtf/rtf_text.h"
#include "conv/set/table_shape.h"

void gRtfSetter::set_table(gNode const & node, std::string & out) {
  using enum gVltValue;
  gTableShape const shape(node);
  std::vector<int> const ends = Rtf::column_ends(shape, indent(), text_width_);
  if (ends.empty())
    return; // rows without cells are no RTF
  std::string const left = std::to_string(indent()), high = std::to_string(node.children.size());
  std::string rows;
  for (std::size_t r = 0; r < node.children.size(); ++r) {
    gNode const & row = node.children[r];
    bool const marked = shape.marked_rows[r];
    std::string cells;
    for (std::size_t c = 0; c < ends.size(); ++c) {
      std::string inner = c < row.children.size() ? cell_text(row.children[c].children) : "";
      for (std::size_t more = ends.size(); c + 1 == ends.size() && more < row.children.size();
           ++more)
        inner += "\\line " + cell_text(row.children[more].children); // no row holds so many
      bool const stressed = marked || shape.marked_columns[c];
      rules().apply(gVltRule::cell, marked ? "head" : "",
                    gVltValues().set(text, inner).set(mark, stressed ? "1" : ""), cells);
    }
    std::string const definition = row_definition(shape, ends, r, node.param(0));
    std::string const index = std::to_string(r + 1);
    gVltValues values;
    values.set(items, cells).set(mark, marked ? "1" : "").set(number, index);
    values.set(columns, definition).set(count, high);
    rules().apply(gVltRule::row, marked ? "head" : "", values, rows);
  }
  std::string const shown_style = escaped(node.param(0));
  gVltValues values;
  values.set(items, rows).set(style, shown_style).set(count, high);
  rules().apply(gVltRule::table, node.param(0), values, out);
}

// Cells hold lines, not paragraphs: their ends would lose the look that the script gives to a cell.
std::string gRtfSetter::cell_text(gNodeList const & nodes) {
  std::string out;
  for (gNode const & node : nodes) {
    bool const is_block = node.kind >= gNodeKind::paragraph;
    if (is_block && !out.empty())
      out += "\\line ";
    if (!is_block)
      set_node(node, out);
    else if (node.kind == gNodeKind::verbatim)
      Rtf::escape_lines(node.text, out);
    else
      out += cell_text(node.children);
  }
  return out;
}

std::string gRtfSetter::row_definition(gTableShape const & shape, std::vector<int> const & ends,
                                       std::size_t row, std::string_view style) const {
  auto const look = [&](char const * name) {
    std::string const of_style = rules().setting(std::string(name) + "_" + std::string(style));
    return style.empty() || of_style.empty() ? rules().setting(name) : of_style;
  };
  std::string const plain = look("cell"), head = look("head_cell"), stressed = look("mark_cell");
  // Only rows at the top can be repeated on each page.
  bool const repeated = std::find(shape.marked_rows.begin(), shape.marked_rows.end(), false) >
                        shape.marked_rows.begin() + static_cast<std::ptrdiff_t>(row);
  std::string out = "\\trleft" + std::to_string(indent());
  if (repeated)
    out += "\\trhdr";
  for (std::size_t c = 0; c < ends.size(); ++c) {
    out += shape.marked_rows[row] ? head : shape.marked_columns[c] ? stressed : plain;
    out += "\\cellx" + std::to_string(ends[c]);
  }
  return out;
}
