// Text elements become pieces: a head with the command's name, the pieces of the text, a tail.
#include "ana/cmdpar/gtextparsebase.h"

#include "ana/anadat/gdocunit.h"
#include "ana/anadat/pieces.h"
#include "ana/cmdpar/keywords.h"

namespace {

gStrList closed(gStrList pieces, gStrList const & text, char const * tail) {
  pieces.append(text);
  pieces.push_back(gString(tail));
  return pieces;
}

gStrList framed(gString const & head, gStrList const & text, char const * tail) {
  return closed(gStrList(head), text, tail);
}

} // namespace

gStrList gTextParseBase::format(gString const & name, gParamList & params) {
  if (!check_params(name, params))
    return {};
  return framed("@" + name + "{", params.pieces(0), "} ");
}

gStrList gTextParseBase::note(gString const & name, gParamList & params) {
  if (!check_params(name, params))
    return {};
  return framed("@" + name + "{", params.pieces(0), "}\n");
}

gStrList gTextParseBase::with_word(char const * open, gString const & word,
                                   char const * close) const {
  if (!expands_words() || Vlb::piece_kind(word) == gPiece::plain)
    return gStrList(open + word + close);
  gStrList pieces{gString(open)};
  pieces.push_back(word);
  pieces.push_back(gString(close));
  return pieces;
}

gStrList gTextParseBase::definition(gParamList & params) {
  if (!check_params("dfn", params))
    return {};
  gStrList const & text = params.pieces(0);
  gString const key = text.size() == 1 && Vlb::has_placeholder(text)
                          ? *text.front()
                          : Vlb::escape_atc(text.make_string(""));
  gStrList pieces(Vlb::placeholder(gPiece::index));
  pieces.append(with_word("<><", key, "><><><> "));
  pieces.append(framed("@dfn{", params.pieces(0), "} "));
  return pieces;
}

gStrList gTextParseBase::underline(gParamList & params) {
  if (!check_params("ul", params))
    return {};
  return closed(with_word("@ul<", params.word(1), ">{"), params.pieces(0), "} ");
}

gStrList gTextParseBase::font_size(gParamList & params) {
  if (!check_params("fontsize", params))
    return {};
  gString size = params.word(0);
  if (!read_font_size(size)) {
    error(Msg::invalid_font_size, size);
    size = "100%";
  }
  return framed("@fontsize<" + size + ">{", params.pieces(1), "} ");
}

gStrList gTextParseBase::named_format(gParamList & params) {
  if (!check_params("fmt", params))
    return {};
  return closed(with_word("@fmt<", params.word(0), ">{"), params.pieces(1), "} ");
}

gStrList gTextParseBase::code_text(gStrList pieces) {
  pieces.push_front(make_ref<gString>("@code{"));
  pieces.push_back(gString("} "));
  return pieces;
}

gStrList gTextParseBase::tab(gString const & name, gParamList & params) {
  if (!check_params(name, params))
    return {};
  auto const [number, unit] = read_measure(params.word(0));
  if (unit.empty()) {
    error(Msg::invalid_tab_width, params.word(0));
    return {};
  }
  return gStrList(gString("@" + name + "<" + number + unit + "> "));
}

gStrList gTextParseBase::headline(gParamList & params) {
  if (!check_params("hdline", params))
    return {};
  gStrList const & text = params.pieces(0);
  gStrList pieces = framed("@hdltoc{", params.params.size() > 1 ? params.pieces(1) : text, "}\n");
  pieces.append(framed("@hdline{", text, "}\n"));
  return pieces;
}

gStrList gTextParseBase::references(gParamList const & params, gStrList const & text) const {
  gString window = params.option("wintype");
  if (window.empty())
    window = "main";
  gStrList pieces;
  for (cRef<gString> const & target : params.pieces(0)) {
    pieces.push_back(Vlb::placeholder(gPiece::reference));
    pieces.push_back("<" + window + ">");
    pieces.push_back(target);
    pieces.append(framed("{", text.empty() ? gStrList(target) : text, "} "));
  }
  return pieces;
}

gStrList gTextParseBase::cross_reference(gParamList & params) {
  if (!check_params("cref", params))
    return {};
  if (!Vlb::has_piece(params.pieces(1), gPiece::reference))
    return references(params, params.pieces(1));
  error(Msg::nested_cref);
  return references(params, {});
}

gStrList gTextParseBase::link_reference(gParamList & params) {
  if (!check_params("crefll", params))
    return {};
  return references(params, params.pieces(1));
}

gStrList gTextParseBase::short_references(gStrList const & targets) {
  gStrList pieces;
  for (cRef<gString> const & target : targets) {
    pieces.push_back(Vlb::placeholder(gPiece::reference));
    pieces.push_back(gString("<main>"));
    pieces.push_back(target);
    pieces.append(framed("{", gStrList(target), "} "));
  }
  return pieces;
}

gStrList gTextParseBase::index_entry(std::initializer_list<gStrList *> fields) {
  gStrList pieces(Vlb::placeholder(gPiece::index));
  char const * open = "<";
  for (gStrList * field : fields) {
    pieces.push_back(gString(open));
    pieces.append(std::move(*field));
    open = "><";
  }
  pieces.push_back(gString(fields.size() < 5 ? "><><> " : "> "));
  return pieces;
}

gStrList gTextParseBase::citation(gParamList & params) {
  if (!check_params("cite", params))
    return {};
  gStrList pieces(Vlb::placeholder(gPiece::citation));
  pieces.push_back(params.word(0));
  return pieces;
}

gStrList gTextParseBase::attribute_value(gParamList & params) {
  if (!check_params("outattr", params) || !check_attribute(params.word(0)))
    return {};
  gStrList pieces(Vlb::placeholder(gPiece::attribute));
  pieces.push_back(params.word(0));
  return pieces;
}

std::pair<int, int> gTextParseBase::hierarchy_levels(gParamList & params) {
  if (!check_params("classhierarchy", params))
    return {0, 0};
  int const up = hierarchy_level(params, "up");
  return {up, hierarchy_level(params, "down")};
}

int gTextParseBase::hierarchy_level(gParamList const & params, std::string_view option) const {
  if (!params.has_option(option))
    return hier_all;
  int level = 0;
  gString const text = params.option(option);
  if (!read_int(text, level)) {
    error(Msg::invalid_hierarchy_level, text);
    return 0;
  }
  return level;
}
