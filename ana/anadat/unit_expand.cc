// What only the document can settle is settled while a copy is written: by then every unit of the
// document is known, and a reference can lead forward.
#include "ana/anadat/pieces.h"
#include "ana/anadat/tables.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

gString quoted(gString const & text) {
  return "\"" + text + "\"";
}

} // namespace

// Along a list from what was written to what is shown, which is a list of its own.
struct gDocUnit::Walk {
  gStrList const & list;
  gStrList settled;
  std::size_t at = 0;

  bool done() const { return at == list.size(); }
  gString const & piece() const { return *list[at]; }
  void keep() { settled.push_back(list[at++]); }
  // Stands for the piece that is next.
  void replace(gString text) {
    settled.push_back(std::move(text));
    ++at;
  }
};

gString Vlb::macro_text(std::string_view variable) {
  return "@macro<cur_" + std::string(variable.substr(4)) + ">{} ";
}

gString Vlb::attribute_text(gString const & attribute, gString const & value) {
  auto const values = gInput->attributes.find(attribute);
  if (values == gInput->attributes.end())
    return gString();
  auto const text = values->second.find(value);
  return text == values->second.end() ? gString() : text->second;
}

gString gDocUnit::variable(std::string_view name) const {
  if (name == "$name")
    return first_name();
  if (name == "$qname")
    return this->name();
  if (name == "$cname")
    return second_name();
  return curclass_ ? *curclass_ : gString();
}

void gDocUnit::expand_subentries() {
  for (std::size_t i = 0; i < subentries_.size(); ++i) {
    gSubEntries::Entry const & entry = std::as_const(subentries_).begin()[i];
    if (Vlb::has_placeholder(entry.text) && !is_verbatim(*entry.name))
      expand(subentries_.begin()[i].text);
  }
}

void gDocUnit::expand(gStrList & list, bool keep_references) const {
  Walk walk{list, {}};
  walk.settled.reserve(list.size());
  while (!walk.done()) {
    if (keep_references && Vlb::piece_kind(walk.piece()) == gPiece::reference)
      walk.keep();
    else
      expand_piece(walk);
  }
  list = std::move(walk.settled);
}

void gDocUnit::expand(cRef<gTextList> & list, bool keep_references) const {
  if (!list || !Vlb::has_placeholder(list->list))
    return;
  list = make_ref<gTextList>(list->list);
  expand(list->list, keep_references);
}

void gDocUnit::expand_links() {
  expand(link_line_, true);
  expand(srclink_text_, false);
}

void gDocUnit::expand_piece(Walk & walk) const {
  gString const & piece = walk.piece();
  switch (Vlb::piece_kind(piece)) {
  case gPiece::citation:
    return expand_citation(walk);
  case gPiece::variable:
  case gPiece::curclass:
    return walk.replace(Vlb::escape_atc(variable(piece)));
  case gPiece::macro:
    return walk.replace(Vlb::macro_text(piece));
  case gPiece::index:
    return walk.replace(Vlb::index_mark("xetplbkmk"));
  case gPiece::reference:
    return expand_reference(walk);
  case gPiece::guess:
    return expand_guess(walk);
  case gPiece::alias:
    return expand_alias(walk);
  case gPiece::attribute:
    return expand_attribute(walk);
  default:
    return walk.keep();
  }
}

// "@cref", the window type, the target: the text behind it is left to the next calls.
void gDocUnit::expand_reference(Walk & walk) const {
  walk.keep();
  if (walk.done())
    return;
  walk.keep();
  if (walk.done())
    return;
  gString name = walk.piece();
  gPiece const kind = Vlb::piece_kind(name);
  if (kind == gPiece::variable || kind == gPiece::curclass) {
    gString const value = variable(name);
    if (value.empty())
      Msg::log(Msg::empty_unit_variable, name, loc_);
    name = value;
  } else {
    name.unescape('\\');
  }
  gString target;
  if (gDocManager.resolve_reference(outline_, name, target))
    return walk.replace("<" + target + ">");
  Msg::log(Msg::target_not_found, quoted(name), loc_);
  walk.settled.back() = make_ref<gString>("<void>");
  walk.replace("<>");
}

// The label of the unit that a name means here: looked up from the inside out. A part of a name
// alone is none, so what merely looks alike isn't taken.
gString gDocUnit::label_in_scope(std::string_view name) const {
  std::vector<std::string_view> parts;
  for (auto const & part : names())
    parts.push_back(*part);
  std::string_view const sep =
      name_sep().empty() ? std::string_view("::") : std::string_view(name_sep());
  for (std::size_t depth = std::min<std::size_t>(parts.size(), 16) + 1; depth-- > 0;) {
    std::string full;
    for (std::size_t i = 0; i < depth; ++i)
      full += std::string(parts[i]) + std::string(sep);
    full += name;
    gDocUnit const * const found = gDocManager.find_unit(outline_, full);
    bool const scoped = name.find(sep) != name.npos;
    if (found && (scoped || found->name() == gString(full)))
      return found == this ? gString() : found->label();
  }
  return gString();
}

// "@_vlguess", the name, "{@tt{" text "} } ".
void gDocUnit::expand_guess(Walk & walk) const {
  if (walk.at + 1 == walk.list.size())
    return walk.keep();
  ++walk.at;
  gString const label = label_in_scope(walk.piece());
  if (!label.empty()) {
    walk.settled.push_back(gString("@cref<main>"));
    return walk.replace("<" + label + ">");
  }
  ++walk.at;
  if (walk.done())
    return;
  constexpr std::string_view name = "{@code{"; // stays program text
  constexpr std::string_view open = "{@tt{", close = "} } ";
  gString const & shown = walk.piece();
  if (shown.starts_with(name))
    walk.replace(gString(shown.substr(1, shown.size() - 3)));
  else if (shown.starts_with(open) && shown.ends_with(close))
    walk.replace(gString(shown.substr(open.size(), shown.size() - open.size() - close.size())));
}

void gDocUnit::expand_alias(Walk & walk) const {
  if (walk.at + 1 == walk.list.size())
    return walk.keep();
  gString const & name = *walk.list[walk.at + 1];
  gString const upper = Vlb::to_upper(name);
  if (gBookmarks.contains(upper)) {
    walk.keep();
    return walk.replace("<" + upper + ">");
  }
  Msg::log(Msg::target_not_found, quoted(name), loc_);
  walk.replace(gString());
  ++walk.at;
}

void gDocUnit::expand_attribute(Walk & walk) const {
  if (walk.at + 1 == walk.list.size())
    return walk.keep();
  gString const & name = *walk.list[walk.at + 1];
  walk.replace(Vlb::attribute_text(name, get_attr(name)));
  ++walk.at;
}

void gDocUnit::expand_citation(Walk & walk) const {
  walk.replace("@endp\n@b_verbatim\n");
  if (walk.done())
    return;
  walk.replace(citation_text(walk.piece()));
  walk.settled.push_back(gString("\n@e_verbatim\n@endp\n"));
}

gString gDocUnit::citation_text(gString const & name) const {
  cRef<gCitation> citation;
  if (!gCitations.find(name, citation)) {
    Msg::log(Msg::undefined_citation, name, loc_);
    return gString();
  }
  citation->read();
  if (citation->state() == gCitation::unread) {
    Msg::log(Msg::citation_unreadable, name, loc_);
    return gString();
  }
  if (citation->state() == gCitation::end_of_file)
    Msg::log(Msg::citation_end_of_file, name, loc_);
  gSubText text(citation->text());
  int const tab_width = gInput->text.tab_width;
  text.strip_indent(text.common_indent(tab_width), tab_width);
  text.add_indent(gInput->text.verb_indent);
  return Vlb::escape_atc(text.make_string(""));
}
