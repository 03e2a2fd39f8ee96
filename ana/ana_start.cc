// The steps in front of a run. They use the port alone, so a menu handler and the command line can
// share them.

#include "ana/ana_start.h"

#include "app/options/options.h"
#include "vlb/outside.h"

namespace {

bool refuse(gString const & text, gOutside::Icon icon = gOutside::Icon::exclamation) {
  Vlb::outside().box(text, icon);
  return false;
}

bool warn_outdir() {
  bool warn = true;
  cat::read(Vapp::options_ini.at("warn_outdir"), warn);
  return warn;
}

gString folder_text(gOutputFolder const & folder, char const * behind) {
  return "Folder '" + folder.path() + "' " + behind;
}

// Says so if the folder is one that is never emptied.
bool is_protected(gOutputFolder const & folder) {
  gString const text = protected_folder_text(folder.path(), gProtectedPlaces::of_options());
  if (!text.empty())
    refuse(text, gOutside::Icon::stop);
  return !text.empty();
}

bool has_foreign_files(gOutputFolder const & folder) {
  return folder.exists() && !folder.foreign_file().empty();
}

// The dialogs make a folder that the user names, so an empty one is nothing to be warned of.
bool needs_question(gOutputFolder const & folder, gOverwrite overwrite) {
  if (!folder.exists() || folder.is_empty() || overwrite == gOverwrite::allow || !warn_outdir())
    return false;
  return overwrite == gOverwrite::ask || has_foreign_files(folder);
}

// Says so if files of the user stand where the run would write.
bool is_in_the_way(gOutputFolder const & folder) {
  gString const name = folder.file_in_the_way();
  if (!name.empty())
    refuse(folder_text(folder, "holds '") + name +
               "', which no run has left there and which a run would replace. Move it away, or "
               "choose another output folder.",
           gOutside::Icon::stop);
  return !name.empty();
}

// What another run is writing in the meantime must not be taken for files of the user, so the lock
// comes in front of all questions.
bool is_in_use(gOutputFolder & folder) {
  if (!folder.exists() || folder.lock())
    return false;
  refuse(folder_text(folder, "is in use by another run. Wait for its end, or choose another "
                             "output folder."),
         gOutside::Icon::stop);
  return true;
}

// The folder that the user settles on; null if the run is called off. A folder that was chosen
// instead is asked about too, unless questions come without regard to what a folder holds.
std::unique_ptr<gOutputFolder> settle_folder(gOverwrite overwrite) {
  for (bool again = true;;) {
    auto folder = std::make_unique<gOutputFolder>();
    if (is_protected(*folder) || is_in_use(*folder))
      return nullptr;
    if (!again || !needs_question(*folder, overwrite))
      return folder;
    if (overwrite == gOverwrite::refuse_foreign) {
      refuse(folder_text(*folder, "already exists and holds files that no run has left there: '") +
             folder->foreign_file() + "'. With --overwrite a run goes on and leaves them there.");
      return nullptr;
    }
    gOutside::Answer const answer = Vlb::outside().ask_yes_no_cancel(
        folder_text(*folder, "already exists.\nThe contents of this folder will be "
                             "deleted.\n\nDo you want to choose a different folder?"));
    if (answer == gOutside::Answer::no)
      return folder;
    if (answer == gOutside::Answer::cancel || !Vlb::outside().dialog("gDefineOutdir"))
      return nullptr;
    again = overwrite != gOverwrite::ask;
  }
}

bool has_input() {
  cRef<cObj> const groups = Vapp::option("inputfiles");
  return groups && groups->size() > 0;
}

} // namespace

bool ana_check_project() {
  if (!has_input())
    return refuse("No input files specified.");
  if (Vapp::option_string("vls_file").empty())
    return refuse("No script file specified.");
  if (Vapp::option_string("out_dir").empty())
    return refuse("No output folder specified.");
  return true;
}

std::unique_ptr<gOutputFolder> ana_prepare_folder(gOverwrite overwrite) {
  std::unique_ptr<gOutputFolder> folder = settle_folder(overwrite);
  if (!folder)
    return nullptr;
  if (!folder->exists()) {
    if (!folder->create()) {
      refuse(folder_text(*folder, "could not be created."), gOutside::Icon::stop);
      return nullptr;
    }
    if (is_in_use(*folder))
      return nullptr;
  }
  if (is_in_the_way(*folder))
    return nullptr;
  if (!folder->clear()) {
    refuse(folder_text(*folder, "could not be emptied. See who may write in it."),
           gOutside::Icon::stop);
    return nullptr;
  }
  return folder;
}
