// The values of the selected attribute stand beside the attributes. What a source pattern of the
// project uses can't be deleted, as the project is now.
#include "app/shell/dialogs/sheets/attribute_dialog.h"

#include "app/options/defaults.h"
#include "app/shell/dialogs/context.h"
#include "app/shell/dialogs/host.h"
#include "app/shell/dialogs/sheets/attribute_copy.h"
#include "app/shell/dialogs/sheets/attributes_written.h"
#include "app/shell/dialogs/sheets/list_field.h"
#include "app/shell/dialogs/small_dialogs.h"
#include "vlb/outside.h"

using namespace Vapp;

namespace {

class Page : public gPage {
public:
  Page();

  bool exchange(bool store) override;
  void changed(gField &) override { show(); }
  void pressed(gField & button) override;
  void activated(gField & list, int column) override;
  void key(gField & list, gListKey key) override;

private:
  gField & list(char const * id, char const * frame, char const * first, char const * second);
  gField & button(char const * id, char const * label, char const * frame, char const * tip);
  void show();
  void new_attribute();
  void delete_attribute();
  void edit_comment();
  void new_value();
  void edit_value();
  void enter_value(gAttvalDialog & ask, std::string const & before);
  void delete_value();

  gAttributeCopy copy_;
  gField & attributes_;
  gField & new_attribute_;
  gField & delete_attribute_;
  gField & values_;
  gField & new_value_;
  gField & edit_value_;
  gField & delete_value_;
};

Page::Page()
    : gPage("Attributes", gContext::attributes),
      attributes_(list("attributes", "attributes", "Name", "Comment")),
      new_attribute_(button("attribute_new", "New...", "attributes", "New attribute")),
      delete_attribute_(button("attribute_delete", "Delete", "attributes", "Delete the attribute")),
      values_(list("values", "values", "Value", "Output text")),
      new_value_(button("value_new", "New...", "values", "New value of the attribute")),
      edit_value_(button("value_edit", "Edit...", "values", "Change the value")),
      delete_value_(button("value_delete", "Delete", "values", "Delete the value")) {
  frame("attributes", "Attributes");
  frame("values", "Attribute values");
  new_attribute_.place = new_value_.place = gField::Place::column;
}

gField & Page::list(char const * id, char const * frame, char const * first, char const * second) {
  return add({.id = id, .kind = gField::Kind::list, .frame = frame, .titles = {first, second}});
}

gField & Page::button(char const * id, char const * label, char const * frame, char const * tip) {
  return add(
      {.id = id, .kind = gField::Kind::button, .label = label, .frame = frame, .tool_tip = tip});
}

bool Page::exchange(bool store) {
  if (store)
    return copy_.store();
  copy_.read();
  show();
  return false;
}

void Page::show() {
  std::vector<gField::Row> rows;
  for (cIterObj it = copy_.attributes().begin(); it.valid(); it++)
    rows.push_back({it.key_as_string(), cat::as_string((*it).at("com"))});
  Shell::fill(attributes_, std::move(rows));
  std::string const name = attributes_.cell();
  rows.clear();
  for (gField::Row const & value : Shell::key_rows(copy_.attributes().at(name) / "val"))
    rows.push_back({value[0], copy_.output(name, value[0])});
  Shell::fill(values_, std::move(rows));
  delete_attribute_.enabled = new_value_.enabled = !name.empty();
  edit_value_.enabled = delete_value_.enabled = values_.selected >= 0;
}

void Page::pressed(gField & button) {
  if (&button == &new_attribute_)
    new_attribute();
  else if (&button == &delete_attribute_)
    delete_attribute();
  else if (&button == &new_value_)
    new_value();
  else if (&button == &edit_value_)
    edit_value();
  else if (&button == &delete_value_)
    delete_value();
}

void Page::activated(gField & list, int column) {
  if (&list == &values_)
    edit_value();
  else if (column == 1)
    edit_comment();
}

void Page::key(gField & list, gListKey key) {
  bool const values = &list == &values_;
  if (key == gListKey::insert)
    values ? new_value() : new_attribute();
  else if (key == gListKey::remove)
    values ? delete_value() : delete_attribute();
  else
    values ? edit_value() : edit_comment();
}

void Page::new_attribute() {
  NewattrDialog ask(copy_.tree());
  if (!Shell::show_dialog(ask))
    return;
  copy_.attributes().set(ask.name(), Vapp::new_attribute(ask.comment()));
  touch();
  show();
  Shell::select(attributes_, ask.name());
  show();
}

void Page::delete_attribute() {
  std::string const name = attributes_.cell();
  if (name.empty() || !Shell::may_delete(check_delete_attribute(copy_.tree_with_users(), name)))
    return;
  copy_.attributes().erase(name);
  touch();
  show();
}

void Page::edit_comment() {
  std::string const name = attributes_.cell();
  cMapObj * const record = copy_.attribute(name);
  if (!record)
    return;
  cTxtDialog ask(fill_text("Meaning of attribute %s", {name}), "Comment",
                 cat::as_string(record->at("com")));
  if (!Shell::show_dialog(ask) || ask.text() == cat::as_string(record->at("com")))
    return;
  record->set("com", cat::make(ask.text()));
  touch();
  show();
}

void Page::new_value() {
  std::string const name = attributes_.cell();
  cMapObj * const record = copy_.attribute(name);
  if (!record)
    return;
  gAttvalDialog ask(fill_text("New Value for Attribute %s", {name}), *record);
  enter_value(ask, "");
}

void Page::edit_value() {
  std::string const name = attributes_.cell(), value = values_.cell();
  cMapObj * const record = copy_.attribute(name);
  if (!record || value.empty())
    return;
  if (gCheck const refusal = check_change_value(copy_.tree(), name, value)) {
    refuse(values_, refusal->message);
    return;
  }
  gAttvalDialog ask(fill_text("Change Value of Attribute %s", {name}), *record, value,
                    copy_.output(name, value));
  enter_value(ask, value);
}

void Page::enter_value(gAttvalDialog & ask, std::string const & before) {
  if (!Shell::show_dialog(ask))
    return;
  copy_.set_value(attributes_.cell(), before, ask.value(), ask.output());
  touch();
  show();
  Shell::select(values_, ask.value());
  show();
}

void Page::delete_value() {
  std::string const name = attributes_.cell(), value = values_.cell();
  if (value.empty() || !Shell::may_delete(check_delete_value(copy_.tree_with_users(), name, value)))
    return;
  copy_.remove_value(name, value);
  touch();
  show();
}

} // namespace

gDefineAttr::gDefineAttr() : gDialog("Attributes", Apply::yes) {
  add_page<Page>();
}

void gDefineAttr::stored(bool written) {
  gDialog::stored(written);
  if (written)
    Shell::attributes_written()();
}
