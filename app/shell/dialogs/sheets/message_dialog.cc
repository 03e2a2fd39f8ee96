// The sink takes the values at once, so that they count for a run that goes on, too.
#include "app/shell/dialogs/sheets/message_dialog.h"

#include "app/options/options.h"
#include "app/shell/dialogs/context.h"
#include "app/shell/dialogs/sheets/edit_value.h"
#include "app/shell/dialogs/sheets/option_page.h"
#include "vlb/gmsghandler.h"
#include "vlb/outside.h"

using namespace Vapp;

namespace {

class Page : public gOptionPage {
public:
  Page()
      : gOptionPage("Configure Messages", gContext::messages),
        limit_field_(add({.id = "msg/err_max", .kind = gField::Kind::number})),
        limit_(limit_field_) {
    limit_field_.label = limit_row.label;
    limit_field_.tool_tip = "The run ends behind that many errors; empty for no limit";
    option("msg/suppress");
    frame("levels", "Lowest severity");
    option("msg/lvl_disp", "levels");
    option("msg/lvl_file", "levels");
  }

  bool exchange(bool store_it) override {
    bool written = false;
    if (store_it)
      written = store(limit_row, cat::make(limit_.read().value_or(0)));
    limit_.show(number_in(options, limit_row));
    return gOptionPage::exchange(store_it) || written;
  }

  // Without a text: the sound and the focus say it all.
  bool rule(gField & field) override {
    if (&field != &limit_field_)
      return gOptionPage::rule(field);
    if (limit_.read())
      return true;
    focus(field);
    Vlb::outside().beep();
    return false;
  }

private:
  static constexpr gOptionRow const & limit_row = *find_row("msg/err_max");

  gField & limit_field_;
  c_Edit_Value<c_Int_Format_0> limit_;
};

} // namespace

gDiaMsgoptions::gDiaMsgoptions() : gDialog("Configure Messages") {
  add_page<Page>();
}

void gDiaMsgoptions::stored(bool written) {
  Msg::log.err_max = option_int("msg/err_max");
  Msg::log.minlvl_disp(Msg::type(option_int("msg/lvl_disp")));
  Msg::log.minlvl_file(Msg::type(option_int("msg/lvl_file")));
  gDialog::stored(written);
}
