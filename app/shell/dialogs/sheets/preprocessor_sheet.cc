// The two languages have the same fields over options of their own.
#include "app/shell/dialogs/sheets/preprocessor_sheet.h"

#include "app/shell/dialogs/context.h"
#include "app/shell/dialogs/sheets/macro_page.h"
#include "app/shell/dialogs/sheets/option_page.h"

namespace {

class gDiaPreCpp : public gOptionPage {
public:
  gDiaPreCpp() : gOptionPage("C/C++", gContext::pre_cpp) {
    option("ana/cpp_line");
    option("ana/cpp_frame");
    option("ana/cpp_ext");
  }
};

class gDiaPrePas : public gOptionPage {
public:
  gDiaPrePas() : gOptionPage("Pascal/Delphi", gContext::pre_pascal) {
    option("ana/pas_line");
    option("ana/pas_frame");
    option("ana/pas_ext");
  }
};

} // namespace

gPreprocessorSheet::gPreprocessorSheet() : gDialog("Vellumar Preprocessor", Apply::yes) {
  add_page<gDiaPreCpp>();
  add_page<gDiaPrePas>();
  add_page<gDiaPreCppmacros>();
}
