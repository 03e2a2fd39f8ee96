// A chooser offers what stands in the field, so that return keeps it.

#include "app/shell/choosers.h"

#include "app/options/options.h"
#include "app/options/settings.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"
#include "vlb/outside.h"

namespace {

bool can_read(gPathstring const & script) {
  gWaitCursor const wait;
  std::string text;
  bool const read = gFileSystem::read_file(script, text);
  if (!read)
    Msg::log(Msg::script_unreadable, script);
  return read;
}

} // namespace

gPathstring Shell::project_or_program_folder() {
  gString folder;
  cat::read(Vapp::options_ini.at("vlp_dir"), folder);
  return folder.empty() ? Vapp::program_dir() : gPathstring(folder);
}

gPathstring Shell::choose_script(gPathstring const & at_hand, gPathstring const & base) {
  gOutside::Choice choice{gOutside::Choice::Kind::open, "Choose Vellumar Script",
                          "Vellumar Script (*.vls)|*.vls|All Files (*.*)|*.*||", base};
  choice.ext = "vls";
  if (!at_hand.empty()) {
    gPathstring const path = gPathstring(at_hand).make_absolute(base);
    choice.dir = path.dir_name();
    choice.name = path.file_name();
  }
  gPathstring const chosen = Vlb::outside().choose_one(choice);
  return !chosen.empty() && can_read(chosen) ? chosen : gPathstring();
}
