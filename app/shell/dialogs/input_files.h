// The input files of a project: the list of file groups.
#pragma once

#include "app/shell/dialogs/dialog.h"
#include "store/cmapobj.h"
#include "vlb/gpathstring.h"

// What the dialog edits.
struct gInputFiles {
  gString root;     // `inputcurdir`, as typed
  gPathstring base; // what a relative root is relative to; empty: the folder of the project
  cRef<cMapObj> groups = make_ref<cMapObj>(); // `inputfiles`
};

class gDefineSrc : public gDialog {
public:
  // On the options, which are written at OK.
  gDefineSrc();
  // On what the caller has, which is written at OK; it outlives the dialog.
  explicit gDefineSrc(gInputFiles & files);

private:
  class OfOptions;
  class OfCaller;
};
