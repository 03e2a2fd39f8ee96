// A cell of the table is a digit of the subentry's number; a double click switches it.
#include "app/shell/dialogs/sheets/pattern_subentries_page.h"

#include "app/options/options.h"
#include "app/shell/dialogs/context.h"
#include "app/shell/dialogs/sheets/list_field.h"

using namespace Vapp;

namespace {

enum Column { permitted_column, fill_column, automatic_column, verbatim_column };

gField::Row row_of(std::string const & subentry, cObj const & value) {
  int const * const digits = cat::value_of<int>(value);
  if (!digits)
    return {subentry, "bad data", "bad data", "bad data"};
  auto const cell = [&](gConfigDigit digit, char const * text) -> std::string {
    return has_digit(*digits, digit) ? text : "";
  };
  char const * const automatic = subentry == "@description" ? "Default" : "Vellumar";
  return {subentry, cell(config_fill_digit, "Required"), cell(config_automatic_digit, automatic),
          cell(config_verbatim_digit, "Yes")};
}

} // namespace

gSpPage3::gSpPage3(gPatternCopy & copy)
    : gPage("Subentries", gContext::pattern_subentries),
      copy_(copy),
      unit_type_(add({.id = "type", .kind = gField::Kind::combo})),
      permitted_(add({.id = "permitted", .kind = gField::Kind::list})),
      add_(add({.id = "add", .kind = gField::Kind::button})),
      remove_(add({.id = "remove", .kind = gField::Kind::button})),
      subentries_(add({.id = "subentries", .kind = gField::Kind::list})) {
  unit_type_.stored = false;
  unit_type_.label = "Unit type";
  for (gField * field : {&permitted_, &add_, &remove_, &subentries_})
    field->frame = "subentries";
  permitted_.titles = {"Permitted", "Fill out", "Automatic", "Verbatim"};
  add_.label = "Add";
  remove_.label = "Remove";
  add_.place = subentries_.place = gField::Place::column;
  subentries_.titles = {"Subentries"};
}

bool gSpPage3::exchange(bool store) {
  if (store)
    return copy_.store_config();
  show();
  return false;
}

void gSpPage3::show() {
  std::string const before = unit_type_.cell();
  unit_type_.rows = Shell::key_rows(options.at("attr") / "UNITTYPE" / "val");
  std::erase(unit_type_.rows, gField::Row{"undefined"});
  Shell::select_or_first(unit_type_, before);
  std::string const type = unit_type_.cell();
  frame("subentries", fill_text("Subentries of %s", {type.empty() ? "..." : type}));
  std::vector<gField::Row> rows;
  cMapObj const * const config = copy_.config(type);
  for (cIterObj it = config ? config->begin() : cIterObj(nullptr); it.valid(); it++)
    rows.push_back(row_of(it.key_as_string(), *it));
  Shell::fill(permitted_, std::move(rows));
  Shell::fill(subentries_, Shell::key_rows(cRef<cObj>::share(&copy_.subentries())));
  remove_.enabled = permitted_.selected >= 0;
  add_.enabled = subentries_.selected >= 0 && !type.empty();
}

void gSpPage3::changed(gField &) {
  show();
}

void gSpPage3::pressed(gField & button) {
  if (&button == &add_)
    permit();
  else if (&button == &remove_)
    forbid();
}

void gSpPage3::key(gField &, gListKey key) {
  if (key == gListKey::insert)
    permit();
  else if (key == gListKey::remove)
    forbid();
}

void gSpPage3::activated(gField & list, int column) {
  if (&list == &subentries_)
    permit();
  else if (column == fill_column)
    toggle(config_fill_digit);
  else if (column == automatic_column)
    toggle(config_automatic_digit);
  else if (column == verbatim_column)
    toggle(config_verbatim_digit);
}

void gSpPage3::toggle(gConfigDigit digit) {
  std::string const type = unit_type_.cell(), subentry = permitted_.cell();
  cMapObj * const config = copy_.config(type);
  cRef<cObj> const value = config ? config->at(subentry) : nullptr;
  if (!value)
    return;
  int const * const stored = cat::value_of<int>(*value);
  int const digits = stored ? *stored : 0;
  if (gCheck const refusal = check_toggle(type, subentry, digits, digit)) {
    refuse(permitted_, refusal->message);
    return;
  }
  config->set(subentry, cat::make(toggled(digits, digit)));
  touch();
  show();
}

void gSpPage3::permit() {
  std::string const type = unit_type_.cell(), subentry = subentries_.cell();
  if (type.empty() || subentry.empty())
    return;
  if (gCheck const refusal = check_configurable(type)) {
    refuse(subentries_, refusal->message);
    return;
  }
  copy_.permit(type, subentry);
  touch();
  show();
  Shell::select(permitted_, subentry);
  remove_.enabled = true;
}

void gSpPage3::forbid() {
  if (permitted_.cell().empty())
    return;
  copy_.forbid(unit_type_.cell(), permitted_.cell());
  touch();
  show();
}
