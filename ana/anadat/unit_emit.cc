// A placed copy is written once, piece by piece and straight into the stream.
#include "ana/anadat/pieces.h"
#include "ana/anadat/tables.h"
#include "app/options/run_flags.h"

namespace {

// Levels count below the section: root and section are no levels.
int level_of(gDocNode const & unit) {
  int level = -2;
  for (gDocNode const * node = unit.parent(); node; node = node->parent())
    ++level;
  return level;
}

bool has_white_piece(gStrList const & list) {
  for (cRef<gString> const & piece : list)
    if (piece->wsp_only())
      return true;
  return false;
}

bool has_tab(gStrList const & list) {
  for (cRef<gString> const & piece : list)
    if (piece->find('\t') != gString::npos)
      return true;
  return false;
}

} // namespace

void gDocUnit::write_head(std::ostream & stream) const {
  gString const & window = get_attr("WINTYPE");
  gLoc const & place = code_loc();
  gString const label = this->label();
  Vlb::put(stream, "\n@unit<");
  Vlb::put_number(stream, level_of(*this));
  Vlb::put(stream, "><");
  Vlb::put(stream, window == "undefined" ? "main" : window);
  Vlb::put(stream, "><");
  Vlb::put(stream, style_name());
  Vlb::put(stream, "><");
  Vlb::put(stream, flags_ & flag_p ? "p" : "");
  Vlb::put(stream, flags_ & flag_o ? "o" : "");
  Vlb::put(stream, flags_ & flag_s ? "s" : "");
  Vlb::put(stream, "><");
  Vlb::put_escaped(stream, place.file().opath());
  Vlb::put(stream, "><");
  Vlb::put_number(stream, place.line());
  Vlb::put(stream, "><");
  Vlb::put(stream, label);
  Vlb::put(stream, ">\n");
  if (look_ && look_->facts_line)
    write_facts(stream);
  Vlb::put(stream, "@bkmk<");
  Vlb::put(stream, label);
  Vlb::put(stream, ">\n");
  if (flags_ & index_entry)
    write_index(stream, label);
}

void gDocUnit::write_index(std::ostream & stream, std::string_view label) const {
  if (names_->is_wsp())
    return;
  auto const line = [&](gString const & name) {
    Vlb::put(stream, "@xe<");
    Vlb::put(stream, label);
    Vlb::put(stream, "><><");
    Vlb::put_escaped(stream, name);
    Vlb::put(stream, "><><><>\n");
  };
  line(name());
  if (names_->size() > 1)
    line(*names_->back());
}

void gDocUnit::write_link_block(std::ostream & stream) const {
  if (link_line().empty() && srclink_text().empty())
    return;
  Vlb::put(stream, "@b_ll\n");
  Vlb::put_pieces(stream, link_line());
  if (!srclink_text().empty()) {
    Vlb::put(stream, "@macro<srclink><");
    Vlb::put_escaped(stream, code_loc().file().opath());
    Vlb::put(stream, "><");
    Vlb::put_number(stream, code_loc().line());
    Vlb::put(stream, ">{");
    Vlb::put_pieces(stream, srclink_text());
    Vlb::put(stream, "}\n");
  }
  Vlb::put(stream, "@e_ll\n");
}

bool gDocUnit::write_text(std::ostream & stream, std::string_view before, gStrList const & title,
                          std::string_view middle, gSubText const & text, std::string_view behind) {
  if (text.is_wsp())
    return false;
  Vlb::put(stream, before);
  Vlb::put_pieces(stream, title);
  Vlb::put(stream, middle);
  if (has_white_piece(text)) {
    gSubText normal = text;
    normal.wsp_norm();
    Vlb::put_pieces(stream, normal);
  } else {
    Vlb::put_pieces(stream, text);
  }
  Vlb::put(stream, behind);
  return true;
}

void gDocUnit::release_texts() {
  subentries_ = gSubEntries();
  link_line_ = nullptr;
}

void gTextUnit::emit(std::ostream & stream) {
  Vapp::poll_break();
  expand_subentries();
  expand_links();
  write_head(stream);
  if (gSubText const * text = std::as_const(*this).subentries().find("text"))
    write_text(stream, "", {}, "", *text, "@end\n");
  release_texts();
  // A class block may have placed its members below a running text.
  for (cRef<gDocNode> const & child : children())
    child->emit(stream);
}

void gTextUnit::write_head(std::ostream & stream) const {
  gDocUnit::write_head(stream);
  write_link_block(stream);
}

void gSyntUnit::emit(std::ostream & stream) {
  Vapp::poll_break();
  expand_subentries();
  expand_links();
  gStrList headline = this->headline();
  expand(headline);
  write_head(stream);
  if (look())
    for (gContentsItem const & item : look()->contents)
      write_item(stream, item, headline);
  Vlb::put(stream, "@end\n");
  release_texts();
  for (cRef<gDocNode> const & child : children())
    child->emit(stream);
}

void gSyntUnit::write_item(std::ostream & stream, gContentsItem const & item,
                           gStrList const & headline) {
  gStrList copy;
  switch (item.kind) {
  case gContentsItem::headline:
    if (!headline.is_wsp())
      Vlb::put_pieces(stream, headline);
    break;
  case gContentsItem::link_line:
    write_link_block(stream);
    break;
  case gContentsItem::hierarchy:
    write_hierarchy(stream);
    break;
  case gContentsItem::subentry:
    write_subentry(stream, item);
    break;
  case gContentsItem::text:
    Vlb::put_pieces(stream, settled(item, copy));
    break;
  }
}

gStrList const & gSyntUnit::settled(gContentsItem const & item, gStrList & copy) {
  if (!item.variable)
    return item.pieces;
  copy = item.pieces;
  expand(copy);
  return copy;
}

void gSyntUnit::write_subentry(std::ostream & stream, gContentsItem const & item) {
  gSubText const * text = std::as_const(*this).subentries().find(item.word);
  if (item.word == "@sline") {
    if (text)
      write_text(stream, "@sline{", {}, "", *text, "}\n");
    return;
  }
  gStrList copy;
  // What is wrong with a title is told even where the text is missing.
  gStrList const & title = settled(item, copy);
  if (!text)
    return;
  if (item.verbatim)
    write_verbatim(stream, title, *text);
  else
    write_text(stream, "@subentry<1> @subtitle{", title, "}\n", *text, "\n");
}

void gSyntUnit::write_verbatim(std::ostream & stream, gStrList const & title,
                               gSubText const & text) const {
  if (text.is_wsp())
    return;
  Vlb::put(stream, "@subentry<1> @subtitle{");
  Vlb::put_pieces(stream, title);
  Vlb::put(stream, "} @b_verbatim\n");
  int const indent = text.common_indent(look()->tab_width);
  if (indent == 0 && !has_tab(text)) { // most declarations
    Vlb::put_pieces(stream, text);
  } else {
    gSubText stripped = text;
    stripped.strip_indent(indent, look()->tab_width);
    Vlb::put_pieces(stream, stripped);
  }
  Vlb::put(stream, "\n@e_verbatim\n");
}

void gSyntUnit::write_hierarchy(std::ostream & stream) const {
  gLanguage const language = code_loc().file().language();
  if (language == gLanguage::text)
    return;
  gClassTable const & classes = language == gLanguage::cpp ? gCppClasses : gPasClasses;
  // The grammars know classes by their short names.
  bool const known_by_scope = code_elem() && code_elem()->kind != Decl::gKind::none;
  Vlb::put_pieces(stream, classes.hierarchy(known_by_scope ? name() : first_name(), outline(),
                                            hier_up_, hier_down_));
}
