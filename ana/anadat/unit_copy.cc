// The road of a unit into the document: a copy with a label of its own, tied to the templates of
// the section that it stands in.
#include "ana/anadat/pieces.h"
#include "ana/anadat/tables.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

// "@bkmk" for the first copy that asks for the bookmark; nothing for all others.
void settle_bookmark(gStrList & list, gStrList::iterator & it) {
  auto const name = std::next(it);
  if (name == list.end())
    return;
  auto const hid = std::next(name);
  gString const upper = Vlb::to_upper(**name);
  int * const taken = gBookmarks.lookup(upper);
  bool const first = !taken || *taken == 0;
  if (first) {
    gBookmarks.set(upper, 1);
    list.set(it, "@bkmk");
    list.set(name, "<" + **name + ">");
  } else {
    list.set(it, "");
    list.set(name, "");
  }
  it = name;
  if (hid == list.end())
    return;
  list.set(hid, first && **hid == "hid" ? "<hid> " : "");
  it = hid;
}

// Bookmarks and index entries of one list.
void settle(gStrList & list) {
  for (auto it = list.begin(); it != list.end(); ++it) {
    gPiece const kind = Vlb::piece_kind(**it);
    if (kind == gPiece::bookmark)
      settle_bookmark(list, it);
    else if (kind == gPiece::index)
      list.set(it, Vlb::index_mark("xebkmk"));
  }
}

bool has_marks(gStrList const & list) {
  for (cRef<gString> const & piece : list) {
    gPiece const kind = Vlb::piece_kind(*piece);
    if (kind == gPiece::bookmark || kind == gPiece::index)
      return true;
  }
  return false;
}

} // namespace

gString Vlb::index_mark(std::string_view stem) {
  gString const label = make_label(stem, gCounters.labels.get_next_str());
  return "@bkmk<" + label + "> @xe<" + label + ">";
}

void gDocUnit::settle_marks(cRef<gTextList> & list) {
  if (!list || !has_marks(list->list))
    return;
  list = make_ref<gTextList>(list->list);
  settle(list->list);
}

void gDocUnit::finish_copy() {
  take_label();
  for (gSubEntries::Entry const & entry : std::as_const(subentries_))
    if (has_marks(entry.text)) {
      for (gSubEntries::Entry & own : subentries_)
        settle(own.text);
      break;
    }
  settle_marks(link_line_);
}

void gTextUnit::clone(cRef<gDocUnit> & out) const {
  cRef<gTextUnit> copy(new gTextUnit(*this));
  copy->finish_copy();
  out = copy;
}

void gSyntUnit::clone(cRef<gDocUnit> & out) const {
  cRef<gSyntUnit> copy(new gSyntUnit(*this));
  copy->finish_copy();
  settle_marks(copy->headline_);
  out = copy;
}

void gDocUnit::compile(cRef<gOutState> & state) {
  if (!look_)
    look_ = state->unit_look(get_attr("UNITTYPE"));
  if (look_->srclink_text)
    srclink_text_ = look_->srclink_text;
  expand_table(state);
}

void gDocUnit::add_to_front_of_link_line(cRef<gTextList> const & list) {
  if (!link_line_) {
    link_line_ = list;
    return;
  }
  auto both = make_ref<gTextList>(list->list);
  both->list.append(link_line_->list);
  link_line_ = both;
}

void gSyntUnit::compile(cRef<gOutState> & state) {
  cRef<gUnitLook const> const look = state->unit_look(get_attr("UNITTYPE"));
  if (look->no_bookmark)
    clear_flag(bookmark);
  if (look->no_index)
    clear_flag(index_entry);
  compile_hierarchy(*look);
  if (look->link_line)
    add_to_front_of_link_line(look->link_line);
  gDocUnit::compile(state);
}

void gSyntUnit::compile_hierarchy(gUnitLook const & look) {
  int const up = hier_up_ == hier_unset ? look.hier_up : hier_unset;
  int const down = hier_down_ == hier_unset ? look.hier_down : hier_unset;
  if (up == hier_unset && down == hier_unset)
    return;
  gString const & type = get_attr("UNITTYPE");
  gSrcFile const & file = code_loc().file();
  if (type != "class")
    Msg::log(Msg::no_hierarchy_for_unit, type, loc());
  else if (file.language() == gLanguage::text)
    Msg::log(Msg::no_hierarchy_for_file, file.type_string(), loc());
  else
    set_hierarchy(up, down);
}

void gDocUnit::expand_table(cRef<gOutState> & state) {
  if (!state->class_stack.empty())
    curclass_ = Vlb::intern(state->class_stack.back());
  bool any = false;
  for (gSubEntries::Entry const & entry : std::as_const(subentries_))
    any = any || Vlb::has_placeholder(entry.text);
  if (any)
    for (gSubEntries::Entry & entry : subentries_)
      expand_tables(entry.text);
}

void gDocUnit::expand_tables(gSubText & text) const {
  gStrList settled;
  settled.reserve(text.size());
  for (auto it = text.begin(); it != text.end(); ++it) {
    switch (Vlb::piece_kind(**it)) {
    case gPiece::curclass:
      settled.push_back(Vlb::escape_atc(variable("$curclass")));
      break;
    case gPiece::table:
      settled.push_back(gString("@b_table"));
      if (std::next(it) != text.end())
        ++it; // "no"
      break;
    case gPiece::table_row:
      settled.push_back(gString("@row "));
      break;
    case gPiece::table_end:
      settled.push_back(gString("@e_table\n"));
      break;
    default:
      settled.push_back(*it);
      break;
    }
  }
  text = std::move(settled);
}
