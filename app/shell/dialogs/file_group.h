// One file group: folders, file names, and the name by which scripts select them.
#pragma once

#include "app/shell/dialogs/dialog.h"
#include "store/cobj.h"
#include "vlb/gpathstring.h"

class gFG_Dialog : public gDialog {
public:
  // `root` is the absolute folder that paths are relative to. `group` may be null, for a new one.
  gFG_Dialog(gPathstring const & root, cObj const * group);

  // Raised at OK with the paths and the files; whoever has the list of files tests them, and
  // publishes a cErr for each fault.
  cSignal2<gString const &, gString const &> test_files;

  // The fields in the order of the columns of the list of groups.
  enum Field { paths, files, outgrp };
  std::string const & text(Field field) const;
  // Where the user begins.
  void start_at(Field field);

private:
  class Page;
  Page * page_;
};

namespace Shell {

// The chosen path as it is added to a group: without the root that it lies in, `root` ending with a
// separator. Empty for the root itself.
gString shortened_folder(gPathstring const & path, gPathstring const & root);
// The same for a file. In a group with one folder the file is relative to that; in one with several
// it stays whole.
gString shortened_file(gPathstring const & path, gPathstring const & root, gString const & paths);

} // namespace Shell
