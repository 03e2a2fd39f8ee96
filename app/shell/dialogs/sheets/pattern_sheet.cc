// The pages share one copy: the first one reads it for all, and what one page changes the others
// show.
#include "app/shell/dialogs/sheets/pattern_sheet.h"

#include "app/shell/dialogs/sheets/attributes_written.h"
#include "app/shell/dialogs/sheets/pattern_definition_page.h"
#include "app/shell/dialogs/sheets/pattern_properties_page.h"
#include "app/shell/dialogs/sheets/pattern_special_page.h"
#include "app/shell/dialogs/sheets/pattern_subentries_page.h"

gPatternSheet::gPatternSheet()
    : gDialog("Source Patterns", Apply::yes),
      definition_(add_page<gSpPage1>(copy_, [this] { show(); })),
      properties_(add_page<gSpPage2>(copy_)),
      subentries_(add_page<gSpPage3>(copy_)),
      attributes_slot_(*this, &gPatternSheet::attributes_written) {
  add_page<gSpPageSpecial>(copy_, [this] { show(); });
  Shell::attributes_written().connect(attributes_slot_);
}

void gPatternSheet::show() {
  definition_.show();
  properties_.show();
  subentries_.show();
}

void gPatternSheet::attributes_written() {
  properties_.read_attributes();
  subentries_.show();
  update();
}
