// The records of a private map are changed at once; the map is stored as a whole.
#include "app/shell/dialogs/sheets/macro_page.h"

#include "app/options/options.h"
#include "app/options/text_rules.h"
#include "app/shell/dialogs/context.h"
#include "app/shell/dialogs/host.h"
#include "app/shell/dialogs/put.h"
#include "app/shell/dialogs/sheets/list_field.h"
#include "app/shell/dialogs/small_dialogs.h"

using namespace Vapp;

namespace {

enum Action { keep_as_is, remove_whole, keep_parameters };

} // namespace

gDiaPreCppmacros::gDiaPreCppmacros()
    : gOptionPage("C/C++ Macros", gContext::pre_macros),
      names_(add({.id = "macros", .kind = gField::Kind::list})),
      new_(button("new", "New...", gField::Place::column)),
      delete_(button("delete", "Delete")),
      parameterized_(add({.id = "parameterized", .kind = gField::Kind::check})),
      action_(add({.id = "action", .kind = gField::Kind::combo})),
      interpretation_(add({.id = "interpretation", .kind = gField::Kind::combo})) {
  names_.label = "Macros";
  parameterized_.label = "parameterized";
  action_.label = "Action";
  action_.rows = {{"Don't change"}, {"Remove completely"}, {"Keep macro parameters"}};
  interpretation_.label = "Syntactic interpretation";
  interpretation_.rows = {{"C/C++ -Identifier"}, {"C/C++ -Declaration"}};
  for (gField * field : {&parameterized_, &action_, &interpretation_})
    field->frame = "properties";
  parameterized_.place = gField::Place::column;
}

bool gDiaPreCppmacros::exchange(bool store) {
  if (store)
    return Shell::put(options, "cppmacros", macros_->clone());
  macros_ = Shell::working_copy(options.at("cppmacros"));
  show();
  return false;
}

// Null without a selection, and for a record that is none.
gCppMacro * gDiaPreCppmacros::selected() const {
  cRef<cObj> const value = macros_->at(names_.cell());
  return value ? cat::value_of<gCppMacro>(*value) : nullptr;
}

void gDiaPreCppmacros::show() {
  Shell::fill(names_, Shell::key_rows(macros_));
  gCppMacro const * const macro = selected();
  frame("properties", macro ? fill_text("Properties of %s", {macro->name}) : "Properties");
  delete_.enabled = names_.selected >= 0;
  parameterized_.enabled = action_.enabled = macro;
  parameterized_.checked = macro && macro->parameterized;
  action_.selected = macro ? macro->action : -1;
  interpretation_.selected = macro ? macro->interpretation : -1;
  interpretation_.enabled = macro && macro->action != remove_whole;
}

void gDiaPreCppmacros::changed(gField & field) {
  gCppMacro * const macro = selected();
  if (macro && &field != &names_) {
    macro->parameterized = parameterized_.checked;
    macro->action = action_.selected;
    macro->interpretation = interpretation_.selected;
    check_action(field, *macro);
  }
  show();
}

void gDiaPreCppmacros::check_action(gField & changed, gCppMacro & macro) {
  if (macro.action != keep_parameters || macro.parameterized)
    return;
  macro.action = action_.selected = keep_as_is;
  refuse(changed, "Only for parameterized macros.");
}

void gDiaPreCppmacros::pressed(gField & button) {
  if (&button == &new_)
    make_new();
  else if (&button == &delete_)
    remove();
}

void gDiaPreCppmacros::key(gField &, gListKey key) {
  if (key == gListKey::insert)
    make_new();
  else if (key == gListKey::remove)
    remove();
}

void gDiaPreCppmacros::make_new() {
  auto const check = [this](std::string & name) {
    cat::wsp_normalize(name);
    gCheck const refusal = check_macro_name(name);
    if (refusal || !macros_->at(name))
      return refusal;
    return gCheck(gRefusal{field_none, fill_text("Macro %s already defined.", {name})});
  };
  cTxtDialog ask("New C/C++ Macro", "Macro Name", "", check);
  if (!Shell::show_dialog(ask))
    return;
  macros_->set(ask.text(), cat::make(gCppMacro{gString(ask.text())}));
  touch();
  show();
  Shell::select(names_, ask.text());
  show();
}

void gDiaPreCppmacros::remove() {
  std::string const name = names_.cell();
  if (name.empty() || !Shell::confirmed(fill_text("Delete macro %s?", {name})))
    return;
  macros_->erase(name);
  touch();
  show();
}
