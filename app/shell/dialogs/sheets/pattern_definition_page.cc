// The two optional patterns show a text where others have keywords, and have none.
#include "app/shell/dialogs/sheets/pattern_definition_page.h"

#include "app/options/attributes.h"
#include "app/options/defaults.h"
#include "app/shell/dialogs/context.h"
#include "app/shell/dialogs/host.h"
#include "app/shell/dialogs/sheets/list_field.h"
#include "app/shell/dialogs/small_dialogs.h"

using namespace Vapp;

// The keywords of each kind stand beside its names.
gSpPage1::gSpPage1(gPatternCopy & copy, std::function<void()> show_all)
    : gPage("Definition", gContext::pattern_definition),
      copy_(copy),
      show_all_(std::move(show_all)),
      patterns_{.is_pattern = true},
      subentries_{.is_pattern = false} {
  for (Kind * kind : {&patterns_, &subentries_}) {
    add_names(*kind);
    add_keywords(*kind);
    kind->names->place = gField::Place::row;
    kind->keywords->place = gField::Place::column;
  }
}

gField * gSpPage1::add_list(std::string const & id, std::string const & frame,
                            std::vector<std::string> const & titles) {
  return &add({.id = id, .kind = gField::Kind::list, .frame = frame, .titles = titles});
}

gField * gSpPage1::add_button(std::string const & id, char const * label, std::string const & frame,
                              std::string const & tip) {
  return &add(
      {.id = id, .kind = gField::Kind::button, .label = label, .frame = frame, .tool_tip = tip});
}

void gSpPage1::add_names(Kind & kind) {
  std::string const id = kind.is_pattern ? "pattern" : "subentry";
  std::string const name = kind.is_pattern ? "source pattern" : "subentry";
  frame(id, kind.is_pattern ? "Source patterns" : "Subentries");
  kind.names = add_list(kind.is_pattern ? "patterns" : "subentries", id, {"Name"});
  kind.new_name = add_button(id + "_new", "New...", id, "New " + name);
  kind.new_name->place = gField::Place::column;
  kind.delete_name = add_button(id + "_delete", "Delete", id, "Delete the " + name);
}

void gSpPage1::add_keywords(Kind & kind) {
  std::string const id = kind.is_pattern ? "pattern_keyword" : "subentry_keyword";
  std::string const of = kind.is_pattern ? " of the source pattern" : " of the subentry";
  frame(id, "");
  kind.keywords = add_list(id + "s", id, {"Keyword", "Separators"});
  kind.new_keyword = add_button(id + "_new", "New...", id, "New keyword" + of);
  kind.new_keyword->place = gField::Place::column;
  kind.edit_keyword = add_button(id + "_edit", "Edit...", id, "Change the keyword" + of);
  kind.delete_keyword = add_button(id + "_delete", "Delete", id, "Delete the keyword" + of);
}

cMapObj & gSpPage1::records(Kind const & kind) {
  return kind.is_pattern ? copy_.patterns() : copy_.subentries();
}

// The selected one, whose keywords can be changed. Null without a selection, and for a pattern that
// has none.
cRef<cObj> gSpPage1::record(Kind const & kind) {
  std::string const name = kind.names->cell();
  cRef<cObj> const record = records(kind).at(name);
  bool const none = !record || !record->map() || (kind.is_pattern && is_optional_pattern(name));
  return none ? nullptr : record;
}

bool gSpPage1::exchange(bool store) {
  if (store) {
    bool const patterns = copy_.store_patterns();
    return copy_.store_subentries() || patterns;
  }
  // This page is the first, and reads for all.
  copy_.read();
  show();
  return false;
}

void gSpPage1::show() {
  show(patterns_);
  show(subentries_);
}

void gSpPage1::show(Kind & kind) {
  Shell::fill(*kind.names, Shell::key_rows(cRef<cObj>::share(&records(kind))));
  std::string const name = kind.names->cell();
  cRef<cObj> const record = this->record(kind), list = record / "kwd";
  std::vector<gField::Row> rows;
  for (int i = 0; list && i < list->size(); ++i)
    rows.push_back({cat::as_string(list->at(i) / "0"), cat::as_string(list->at(i) / "1")});
  if (kind.is_pattern && is_optional_pattern(name))
    rows = {{optional_pattern_text(name), ""}};
  Shell::fill(*kind.keywords, std::move(rows));
  frame(kind.keywords->frame, fill_text("Keywords of %s", {name.empty() ? "..." : name}));
  kind.delete_name->enabled = !name.empty();
  kind.new_keyword->enabled = record != nullptr;
  kind.edit_keyword->enabled = kind.delete_keyword->enabled = list && kind.keywords->selected >= 0;
}

void gSpPage1::copy_changed() {
  touch();
  show_all_();
}

void gSpPage1::changed(gField &) {
  show();
}

void gSpPage1::pressed(gField & button) {
  for (Kind * kind : {&patterns_, &subentries_}) {
    if (&button == kind->new_name)
      make(*kind);
    else if (&button == kind->delete_name)
      remove(*kind);
    else if (&button == kind->new_keyword)
      edit_keyword(*kind, -1);
    else if (&button == kind->edit_keyword)
      edit_keyword(*kind, kind->keywords->selected);
    else if (&button == kind->delete_keyword)
      remove_keyword(*kind);
  }
}

void gSpPage1::activated(gField & list, int) {
  key(list, gListKey::edit);
}

void gSpPage1::key(gField & list, gListKey key) {
  for (Kind * kind : {&patterns_, &subentries_}) {
    bool const names = &list == kind->names;
    if (!names && &list != kind->keywords)
      continue;
    if (key == gListKey::insert)
      pressed(names ? *kind->new_name : *kind->new_keyword);
    else if (key == gListKey::remove)
      pressed(names ? *kind->delete_name : *kind->delete_keyword);
    else if (!names)
      edit_keyword(*kind, kind->keywords->selected);
  }
}

void gSpPage1::make(Kind & kind) {
  bool const pattern = kind.is_pattern;
  auto const check = [&](std::string & name) {
    cat::wsp_normalize(name);
    // The names of subentries all begin so; nobody has to type it.
    if (!pattern && !name.empty() && !name.starts_with('@'))
      name.insert(0, "@");
    return pattern ? check_new_pattern(copy_.tree(), name) : check_new_subentry(copy_.tree(), name);
  };
  cTxtDialog ask(pattern ? "New Source Pattern" : "New Subentry", "Name", "", check);
  if (!Shell::show_dialog(ask))
    return;
  records(kind).set(ask.text(), pattern ? new_unit_pattern() : new_subentry());
  copy_changed();
  Shell::select(*kind.names, ask.text());
  show();
}

// A new keyword has the position -1.
void gSpPage1::edit_keyword(Kind & kind, int position) {
  cRef<cObj> const record = this->record(kind);
  if (!record || (position >= 0 && !(record / "kwd" / std::to_string(position))))
    return;
  std::string const holder = kind.names->cell();
  char const * const title = position < 0 ? "New Keyword for %s" : "Change Keyword for %s";
  cRef<cObj> const pair = record / "kwd" / std::to_string(position);
  gKwdDialog ask(fill_text(title, {holder}), copy_.tree(), {holder, position},
                 cat::as_string(pair / "0"), cat::as_string(pair / "1"));
  if (!Shell::show_dialog(ask))
    return;
  cRef<cObj> const list = (*record)["kwd"].force_type(cat::type_vector());
  cRef<cObj> const entered = make_keyword(ask.keyword(), ask.separators());
  if (position < 0)
    list->append(entered);
  else
    list->map()->set(cKey(position), entered);
  copy_changed();
  kind.keywords->selected = position < 0 ? list->size() - 1 : position;
  show();
}

void gSpPage1::remove(Kind & kind) {
  std::string const name = kind.names->cell();
  // These come and go with their options.
  if (name.empty() || (kind.is_pattern && is_optional_pattern(name)))
    return;
  gDeletion const deletion =
      kind.is_pattern ? check_delete_pattern(name) : check_delete_subentry(name);
  if (!Shell::may_delete(deletion))
    return;
  if (kind.is_pattern)
    copy_.patterns().erase(name);
  else
    copy_.remove_subentry(name);
  copy_changed();
}

void gSpPage1::remove_keyword(Kind & kind) {
  cRef<cObj> const list = record(kind) / "kwd";
  if (!list || !list->erase(std::to_string(kind.keywords->selected)))
    return;
  copy_changed();
}
