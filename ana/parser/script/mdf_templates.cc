// The definitions of a script are stored as they are read, into the templates of the run. A second
// definition of a name adds to the first.
#include "ana/anadat/pieces.h"
#include "ana/anadat/tables.h"
#include "ana/cmdpar/keywords.h"
#include "ana/parser/script/mdf_parse_base.h"

void mdf_parse_base::open_definition(char const * kind, gString const & name) {
  if (name.empty()) {
    error(Msg::empty_identifier);
    error(Msg::ignoring_definition);
    definition_ = nullptr;
    return;
  }
  definition_ = cRef<cMapObj>::share(&gVLAttributes.submap(kind).submap(name));
}

void mdf_parse_base::open_unit_template(gString const & name) {
  link_line_.clear();
  open_definition("unittpl", name);
}

void mdf_parse_base::store(std::string_view key, cRef<cObj> const & value) {
  if (definition_)
    definition_->set(key, value);
}

void mdf_parse_base::store_style(gParamList & params) {
  if (check_params("style", params))
    store("style", cat::make(params.word(0)));
}

// A headline that failed leaves the one that the template may have already.
gStrList mdf_parse_base::template_headline(gStrList const & pieces) {
  if (!pieces.empty())
    store("hdline", cat::make(pieces));
  return gStrList(Vlb::placeholder(gPiece::headline));
}

gStrList mdf_parse_base::template_hierarchy(gParamList & params) {
  auto const [up, down] = hierarchy_levels(params);
  store("hierup", cat::make(up));
  store("hierdown", cat::make(down));
  return gStrList(Vlb::placeholder(gPiece::hierarchy));
}

gStrList mdf_parse_base::subentry_place(gString const & subentry, gStrList const & title) {
  store(subentry, cat::make(title));
  gStrList pieces(Vlb::placeholder(gPiece::subentry));
  pieces.push_back(subentry);
  return pieces;
}

// Running heads know no unit: of the variables only those of the page have a meaning there.
gStrList mdf_parse_base::printed_variables(gStrList const & pieces) const {
  gStrList printed;
  for (cRef<gString> const & piece : pieces) {
    switch (Vlb::piece_kind(*piece)) {
    case gPiece::macro:
      printed.push_back(Vlb::macro_text(*piece));
      break;
    case gPiece::variable:
    case gPiece::curclass:
      error(Msg::illegal_print_variable, *piece);
      printed.push_back(gString());
      break;
    default:
      printed.push_back(piece);
    }
  }
  return printed;
}

void mdf_parse_base::print_text(gString const & name, std::string const & key,
                                gParamList & params) {
  if (!check_params(name, params))
    return;
  cRef<cObj> const text = cat::make(printed_variables(params.pieces(0)));
  bool const both = params.params.size() < 2;
  gString const & side = params.word(1);
  if (!both && side != "left" && side != "right") {
    error(Msg::invalid_param, side);
    return;
  }
  if (both || side == "left")
    store(key + "left", text);
  if (both || side == "right")
    store(key + "right", text);
}

void mdf_parse_base::unit_templates(gParamList & params) {
  if (!check_params("unittpl", params))
    return;
  gString name = params.word(1);
  if (name.empty() || !gVLAttributes.has({"unittpl", name})) {
    error(Msg::undefined_unit_template, name);
    error(Msg::using_default_unit);
    name = "UTPL_Default";
  }
  if (!definition_)
    return;
  for (cRef<gString> const & type : params.pieces(0))
    definition_->submap("utpl").set(*type, cat::make(name));
}

void mdf_parse_base::source_links(gParamList & params) {
  if (!check_params("srclink", params) || !definition_)
    return;
  for (cRef<gString> const & type : params.pieces(0))
    definition_->submap("srclink").set(*type, cat::make(true));
  if (params.params.size() > 1)
    store("slnktext", cat::make(params.pieces(1)));
}

void mdf_parse_base::define_columns(gParamList & params) {
  table_columns_ = 0;
  if (!check_params("columns", params) || !check_columns(params.pieces(0)) || !definition_) {
    error(Msg::missing_columns);
    return;
  }
  store("coldef", cat::make(params.pieces(0)));
  table_columns_ = static_cast<int>(params.pieces(0).size());
}

void mdf_parse_base::mark_lines(gString const & command, std::string_view key,
                                gParamList & params) {
  if (check_params(command, params) && check_marks(params.pieces(0)))
    store(key, cat::make(params.pieces(0)));
}

gStrList mdf_parse_base::open_row() {
  row_cells_ = 0;
  return {};
}

gStrList mdf_parse_base::table_cell(gParamList & params) {
  if (!check_params("cell", params))
    return {};
  if (++row_cells_ > table_columns_) {
    error(Msg::too_many_cells);
    error(Msg::ignoring_cells);
    return {};
  }
  gStrList cell(gString("@cell "));
  cell.append(params.pieces(0));
  return cell;
}
