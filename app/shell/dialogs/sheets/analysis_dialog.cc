// What a text unit looks like in a source, and how the sources themselves are read.
#include "app/shell/dialogs/sheets/analysis_dialog.h"

#include "app/shell/dialogs/context.h"
#include "app/shell/dialogs/sheets/option_page.h"

namespace {

class Page : public gOptionPage {
public:
  Page() : gOptionPage("Options", gContext::analysis) {
    frame("text", "Text units");
    option("ana/auto_enum", "text");
    option("ana/auto_num", "text");
    option("ana/start_on_par", "text");
    option("ana/tab_width", "text");
    option("ana/verb_indent", "text");
    frame("sources", "Sources");
    option("ana/dialect", "sources");
    option("ana/foreign_tags", "sources");
    option("ana/facts_line", "sources");
    option("ana/predefined", "sources");
    frame("comments", "Comments");
    option("ana/example_path", "comments");
    option("ana/image_path", "comments");
    option("ana/aliases", "comments");
    option("ana/sections", "comments");
    option("ana/internal_docs", "comments");
  }
};

} // namespace

gDiaAnaopt::gDiaAnaopt() : gDialog("Options") {
  add_page<Page>();
}
