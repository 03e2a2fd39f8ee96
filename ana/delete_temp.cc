// Reads gTmpFiles. Fills nothing.

#include "ana/anadat/tables.h"
#include "ana/stages.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

void ana_delete_temp() {
  Msg::log(Msg::deleting_temp);
  for (gPathstring const & path : gTmpFiles) {
    if (!gFileSystem::remove(path))
      Msg::log(Msg::cannot_remove, path);
  }
}
