// A page for each target, and one for what they share.
#include "app/shell/dialogs/sheets/target_sheet.h"

#include "app/shell/dialogs/context.h"
#include "app/shell/dialogs/sheets/target_page.h"

namespace {

constexpr char const * script_filter =
    "Vellumar Transformation Script (*.vlt)|*.vlt|All Files (*.*)|*.*||";
constexpr char const * style_filter = "RTF Style Sheet (*.rtf)|*.rtf|All Files (*.*)|*.*||";
constexpr char const * project_filter = "Help Project Files (*.hpj)|*.hpj|All Files (*.*)|*.*||";

class gDiaOutHTML : public gTargetPage {
public:
  gDiaOutHTML() : gTargetPage("HTML", gContext::out_html) {
    option("htm/splitlevel");
    file("htm/vlt", "htm/vlt_default", "Choose transformation script for HTML", script_filter);
    file("htm/helpers_dir", "htm/helpers_dir_default", "HTML Auxiliary File Folder");
  }
};

class gDiaOutRTF : public gTargetPage {
public:
  gDiaOutRTF() : gTargetPage("RTF", gContext::out_rtf) {
    file("rtf/vlt", "rtf/vlt_default", "Choose transformation script for RTF", script_filter);
    file("rtf/style", "rtf/style_default", "Choose style sheet for RTF", style_filter);
  }
};

class gDiaOutWinhelp : public gTargetPage {
public:
  gDiaOutWinhelp() : gTargetPage("WinHelp", gContext::out_help) {
    option("hlp/splitlevel");
    option("hlp/indexsep");
    option("hlp/simpleindex");
    option("hlp/hieratounit");
    file("hlp/vlt", "hlp/vlt_default", "Choose transformation script for WinHelp", script_filter);
    file("hlp/style", "hlp/style_default", "Choose style sheet for WinHelp", style_filter);
    file("hlp/hpj", "hlp/hpj_default", "Choose help project file for WinHelp", project_filter);
  }
};

class gDiaOut : public gOptionPage {
public:
  gDiaOut() : gOptionPage("Other", gContext::out_other) { option("indexsubst"); }
};

} // namespace

gTargetSheet::gTargetSheet() : gDialog("Target Format Options", Apply::yes) {
  add_page<gDiaOutHTML>();
  add_page<gDiaOutRTF>();
  add_page<gDiaOutWinhelp>();
  add_page<gDiaOut>();
}
