// Without a project open, too: what is stored here goes to the settings at the program's end.
#include "app/shell/dialogs/sheets/general_dialog.h"

#include "app/shell/dialogs/context.h"
#include "app/shell/dialogs/sheets/option_page.h"

namespace {

class Page : public gOptionPage {
public:
  Page() : gOptionPage("Options", gContext::general) {
    option("htmhelp");
    option("vlp_last");
    option("warn_outdir");
    frame("editor", "Editor for source links");
    option("srclink_editor_cmd", "editor");
    option("srclink_editor_args", "editor");
    option("srclink_editor_scheme", "editor");
  }

  bool exchange(bool store) override {
    if (store)
      for (char const * path : {"srclink_editor_cmd", "srclink_editor_args"})
        if (gField & line = field(path); line.text.empty())
          line.text = Vapp::find_row(path)->text;
    return gOptionPage::exchange(store);
  }
};

} // namespace

gDiaExtraOpt::gDiaExtraOpt() : gDialog("Options") {
  add_page<Page>();
}

void gDiaExtraOpt::stored(bool) {}
