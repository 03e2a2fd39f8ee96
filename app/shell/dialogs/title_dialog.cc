// An absent title stays absent as long as the user leaves the field empty.

#include "app/shell/dialogs/title_dialog.h"

#include "app/options/options.h"
#include "app/options/project.h"
#include "app/shell/dialogs/context.h"
#include "app/shell/dialogs/put.h"

namespace {

class Page : public gPage {
public:
  Page() : gPage("Title", gContext::title), title_(add({.id = "title"})) {
    title_.label = Vapp::find_row("atc_title")->label;
  }

  bool exchange(bool store) override {
    if (!store) {
      title_.text = Vapp::option_string("atc_title");
      return false;
    }
    bool const same =
        title_.text == Vapp::project().title() || title_.text == Vapp::option_string("atc_title");
    return !same && Shell::put(Vapp::options, "atc_title", cat::make(title_.text));
  }

private:
  gField & title_;
};

} // namespace

fDefineTitle::fDefineTitle() : gDialog("Title") {
  add_page<Page>();
}
