// A user who wants no warnings gets none, and no folder either: the start of a run makes it, and
// still keeps away from what must stay.

#include "app/shell/dialogs/output_folder.h"

#include "app/options/options.h"
#include "app/options/text_rules.h"
#include "app/shell/choosers.h"
#include "app/shell/dialogs/chooser_button.h"
#include "app/shell/dialogs/context.h"
#include "app/shell/dialogs/put.h"
#include "vlb/gfilesystem.h"
#include "vlb/outside.h"

namespace {

using Shell::gFolderCheck;

bool is_empty(gPathstring const & folder) {
  gFileInfo info;
  return gFileSystem::find_first(gPathstring(folder).append("*"), info) == gFileSystem::no_match;
}

gFolderCheck refuse(gString const & text) {
  Vlb::outside().box(text, gOutside::Icon::stop);
  return gFolderCheck::refused;
}

gFolderCheck ask_for_contents(gPathstring const & folder) {
  auto const answer = Vlb::outside().ask(
      {Vapp::fill_text("Folder '%s' already exists.\nThe contents of this folder will be "
                       "deleted.\n\nDo you want to choose a different folder?",
                       {folder}),
       gOutside::Icon::exclamation});
  return answer == gOutside::Answer::no ? gFolderCheck::passed : gFolderCheck::refused;
}

} // namespace

gFolderCheck Shell::check_output_folder(gString const & typed, gPathstring const & base,
                                        gProtectedPlaces const & places, bool ask) {
  if (!Vapp::option_bool("warn_outdir"))
    return gFolderCheck::passed;
  gPathstring folder = gString(typed).wsp_rmright();
  if (folder.empty())
    return gFolderCheck::empty;
  folder.make_absolute(base).normalize(true);
  if (gString const text = protected_folder_text(folder, places); !text.empty())
    return refuse(text);
  if (gFileSystem::dir_exists(folder))
    return !ask || is_empty(folder) ? gFolderCheck::passed : ask_for_contents(folder);
  if (!gFileSystem::mk_dir(folder))
    return refuse(Vapp::fill_text("Could not create folder '%s'.", {folder}));
  return gFolderCheck::passed;
}

namespace {

class Page : public gPage {
public:
  Page()
      : gPage("", gContext::output_folder),
        folder_(add({.id = "folder", .label = std::string(Vapp::find_row("out_dir")->label)})) {
    add(chooser_button("choose", "folder", "Choose the output folder"));
  }

  bool exchange(bool store) override {
    if (store)
      return Shell::put(Vapp::options, "out_dir", cat::make(trimmed()));
    folder_.text = Vapp::option_string("out_dir");
    if (folder_.text.empty())
      folder_.text = Shell::project_or_program_folder().append("output");
    return false;
  }

  bool check() override {
    auto const checked = Shell::check_output_folder(
        folder_.text, Shell::project_or_program_folder(), gProtectedPlaces::of_options());
    if (checked != gFolderCheck::passed)
      focus(folder_);
    return checked == gFolderCheck::passed;
  }

  void pressed(gField &) override {
    gPathstring const folder =
        gPathstring(trimmed()).make_absolute(Shell::project_or_program_folder());
    choose_into(folder_, Vlb::outside().choose_folder("Output Folder", folder));
  }

private:
  gString trimmed() const { return gString(folder_.text).wsp_rmright(); }

  gField & folder_;
};

} // namespace

gDefineOutdir::gDefineOutdir() : gDialog("Output Directory") {
  add_page<Page>();
}
