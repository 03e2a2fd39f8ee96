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

void gDocUnit::expand(gStrList & list) {
  for (auto it = list.begin(); it != list.end();)
    expand_text(list, it, false);
}

void gDocUnit::expand(cRef<gTextList> & list, bool keep_references) {
  if (!list || !Vlb::has_placeholder(list->list))
    return;
  list = make_ref<gTextList>(list->list);
  for (auto it = list->list.begin(); it != list->list.end();)
    expand_text(list->list, it, keep_references && Vlb::piece_kind(**it) == gPiece::reference);
}

void gDocUnit::expand_links() {
  expand(link_line_, true);
  expand(srclink_text_, false);
}

void gDocUnit::expand_text(gStrList & list, gStrList::iterator & it, bool skip) {
  switch (skip ? gPiece::plain : Vlb::piece_kind(**it)) {
  case gPiece::citation:
    expand_citation(list, it);
    return;
  case gPiece::variable:
  case gPiece::curclass:
    list.set(it, Vlb::escape_atc(variable(**it)));
    break;
  case gPiece::macro:
    list.set(it, Vlb::macro_text(**it));
    break;
  case gPiece::index:
    list.set(it, Vlb::index_mark("xetplbkmk"));
    break;
  case gPiece::reference:
    expand_reference(list, it);
    return;
  case gPiece::guess:
    expand_guess(list, it);
    return;
  case gPiece::alias:
    expand_alias(list, it);
    return;
  case gPiece::attribute:
    expand_attribute(list, it);
    return;
  default:
    break;
  }
  ++it;
}

// "@cref", the window type, the target: the text behind it is left to the next calls.
void gDocUnit::expand_reference(gStrList & list, gStrList::iterator & it) {
  auto const window = ++it;
  if (it == list.end() || ++it == list.end())
    return;
  auto const place = it++;
  gString name = **place;
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
  if (gDocManager.resolve_reference(outline_, name, target)) {
    list.set(place, "<" + target + ">");
    return;
  }
  Msg::log(Msg::target_not_found, quoted(name), loc_);
  list.set(window, "<void>");
  list.set(place, "<>");
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
void gDocUnit::expand_guess(gStrList & list, gStrList::iterator & it) {
  auto const command = it++;
  if (it == list.end())
    return;
  auto const place = it++;
  gString const label = label_in_scope(**place);
  if (!label.empty()) {
    list.set(command, "@cref<main>");
    list.set(place, "<" + label + ">");
    return;
  }
  list.erase(command);
  list.erase(place);
  constexpr std::string_view name = "{@code{"; // stays program text
  if (it != list.end() && it->get()->starts_with(name)) {
    list.set(it, gString((*it)->substr(1, (*it)->size() - 3)));
    ++it;
    return;
  }
  constexpr std::string_view open = "{@tt{", close = "} } ";
  if (it == list.end() || !it->get()->starts_with(open) || !it->get()->ends_with(close))
    return;
  gString const text = (*it)->substr(open.size(), (*it)->size() - open.size() - close.size());
  list.set(it, text);
  ++it;
}

void gDocUnit::expand_alias(gStrList & list, gStrList::iterator & it) {
  auto const command = it++;
  if (it == list.end())
    return;
  gString const upper = Vlb::to_upper(**it);
  if (gBookmarks.contains(upper)) {
    list.set(it++, "<" + upper + ">");
    return;
  }
  Msg::log(Msg::target_not_found, quoted(**it), loc_);
  list.set(command, "");
  it = list.erase(it);
}

void gDocUnit::expand_attribute(gStrList & list, gStrList::iterator & it) {
  auto const command = it++;
  if (it == list.end())
    return;
  list.set(command, Vlb::attribute_text(**it, get_attr(**it)));
  it = list.erase(it);
}

void gDocUnit::expand_citation(gStrList & list, gStrList::iterator & it) {
  list.set(it++, "@endp\n@b_verbatim\n");
  if (it == list.end())
    return;
  list.set(it, citation_text(**it));
  list.insert(++it, gString("\n@e_verbatim\n@endp\n"));
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
