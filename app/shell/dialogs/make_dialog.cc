// Every dialog that a command opens has its row here.

#include "app/shell/dialogs/make_dialog.h"

#include <algorithm>
#include <iterator>

#include "app/shell/dialogs/host.h"
#include "app/shell/dialogs/input_files.h"
#include "app/shell/dialogs/map_files.h"
#include "app/shell/dialogs/new_project.h"
#include "app/shell/dialogs/output_folder.h"
#include "app/shell/dialogs/sheets/analysis_dialog.h"
#include "app/shell/dialogs/sheets/association_sheet.h"
#include "app/shell/dialogs/sheets/attribute_dialog.h"
#include "app/shell/dialogs/sheets/general_dialog.h"
#include "app/shell/dialogs/sheets/message_dialog.h"
#include "app/shell/dialogs/sheets/pattern_sheet.h"
#include "app/shell/dialogs/sheets/preprocessor_sheet.h"
#include "app/shell/dialogs/sheets/target_sheet.h"
#include "app/shell/dialogs/small_dialogs.h"
#include "app/shell/dialogs/title_dialog.h"

namespace Shell {

namespace {

struct Row {
  std::string_view name;
  std::unique_ptr<gDialog> (*make)();
};

template <class D> std::unique_ptr<gDialog> make() {
  return std::make_unique<D>();
}

// A row each, so that two changes seldom meet.
Row const rows[] = {
    // clang-format off
    {"gDefineNewvlp", make<gDefineNewvlp>},
    {"gDiaHM", make<gDiaHM>},
    {"gDefineSrc", make<gDefineSrc>},
    {"gDefineOutdir", make<gDefineOutdir>},
    {"gAboutDialog", make<gAboutDialog>},
    {"fDefineTitle", make<fDefineTitle>},
    {"gAnaAlloc", make<gAssociationSheet>},
    {"gAnaPre", make<gPreprocessorSheet>},
    {"gAnaSrcpat", make<gPatternSheet>},
    {"gDefineAttr", make<gDefineAttr>},
    {"gDiaAnaopt", make<gDiaAnaopt>},
    {"gDiaExtraOpt", make<gDiaExtraOpt>},
    {"gDiaMsgoptions", make<gDiaMsgoptions>},
    {"gOutOptions", make<gTargetSheet>},
    // clang-format on
};

} // namespace

std::unique_ptr<gDialog> make_dialog(std::string_view name, int page) {
  auto const row =
      std::find_if(std::begin(rows), std::end(rows), [&](Row const & r) { return r.name == name; });
  if (row == std::end(rows))
    return nullptr;
  std::unique_ptr<gDialog> made = row->make();
  made->go_to(page);
  return made;
}

bool run_dialog(gOutside::Dialog const & dialog) {
  std::unique_ptr<gDialog> made = make_dialog(dialog.name, dialog.page);
  if (!made)
    return false;
  if (!dialog.modeless)
    return dialog_host().show(*made);
  made->follow_project();
  dialog_host().open(std::move(made), dialog.closed);
  return true;
}

} // namespace Shell
