// Tables: a head that a template of the script may stand for, then rows of cells.
#include "ana/anadat/pieces.h"
#include "ana/parser/doc/doc_parse_base.h"

bool doc_parse_base::open_table(gParamList & params) {
  if (!check_params("b_table", params))
    return false;
  table_ = {};
  table_columns_ = 0;
  if (!params.params.empty())
    table_.name = params.word(0);
  if (!table_.name.empty())
    read_table_template();
  return true;
}

void doc_parse_base::read_table_template() {
  auto const found = table_templates_->find(table_.name);
  if (found == table_templates_->end()) {
    error(Msg::undefined_table_template, table_.name);
    error(Msg::ignoring_table_template);
    table_.name.clear();
    return;
  }
  gTableTemplate const & from = found->second;
  table_.columns = pieces_of(from.columns);
  table_columns_ = static_cast<int>(table_.columns.size());
  table_.style = from.style;
  table_.markrows = pieces_of(from.markrows);
  table_.markcolumns = pieces_of(from.markcolumns);
  table_.rows = pieces_of(from.rows);
}

gStrList doc_parse_base::pieces_of(std::vector<gString> const & texts) {
  gStrList pieces;
  for (gString const & text : texts)
    pieces.push_back(text);
  return pieces;
}

void doc_parse_base::missing_columns() {
  if (!table_.name.empty())
    return;
  error(Msg::missing_columns);
  table_columns_ = 0;
}

void doc_parse_base::set_columns(gParamList & params) {
  if (!check_params("columns", params) || !check_columns(params.pieces(0))) {
    error(Msg::missing_columns);
    table_columns_ = 0;
    return;
  }
  table_.columns = params.pieces(0);
  table_columns_ = static_cast<int>(table_.columns.size());
  if (!table_.name.empty())
    error(Msg::overwriting_columns);
}

void doc_parse_base::set_table_style(gParamList & params) {
  if (check_params("style", params))
    table_.style = params.word(0);
}

void doc_parse_base::set_marks(gString const & command, gStrList & marks, gParamList & params) {
  if (check_params(command, params) && check_marks(params.pieces(0)))
    marks = params.pieces(0);
}

gStrList doc_parse_base::joined_row(gStrList rows, gStrList cells) {
  rows.push_back(Vlb::placeholder(gPiece::table_row));
  return joined(rows, cells);
}

gStrList doc_parse_base::joined_cell(gStrList cells, gParamList & params) {
  bool const is_good = check_params("cell", params);
  if (table_columns_ == 0)
    return cells;
  if (++row_cells_ > table_columns_) {
    error(Msg::too_many_cells);
    error(Msg::ignoring_cells);
    return cells;
  }
  cells.push_back(piece("@cell "));
  if (is_good)
    cells.append(params.pieces(0));
  return cells;
}

gStrList doc_parse_base::table(bool is_open, gStrList rows) {
  if (!is_open)
    return {};
  gStrList pieces(Vlb::placeholder(gPiece::table));
  pieces.push_back(piece("no"));
  pieces.push_back(gString("<" + table_.style + "><" + table_.columns.make_string(",") + "><" +
                           table_.markcolumns.make_string(",") + "><" +
                           table_.markrows.make_string(",") + ">\n"));
  pieces.append(table_.rows);
  pieces.append(std::move(rows));
  pieces.push_back(Vlb::placeholder(gPiece::table_end));
  return pieces;
}

void doc_parse_base::faulty_table() const {
  error(Msg::table_syntax_error);
  error(Msg::ignoring_command);
}
