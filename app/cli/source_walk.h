// The sources below a folder.
#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

#include <sys/types.h>

#include "vlb/gpathstring.h"

struct gSourceWalk {
  std::vector<gPathstring> folders; // that hold sources, absolute, each in front of those below it
  std::set<std::string> extensions; // that occur, in lower case
  std::size_t files = 0;
  std::vector<gPathstring> left_out; // with a name that can't stand in a list of folders
  std::vector<gPathstring> unreadable;
  std::set<std::pair<dev_t, ino_t>> seen; // so that nothing counts twice, whatever it is called
};

// Goes through a folder and all below it, but not into hidden folders, folders of tools
// ("node_modules", "CVS"), build folders, `leave_out`, and those where it has been. Symbolic links
// to folders aren't followed. `extensions` are lists as in the options ana/cpp_ext and ana/pas_ext.
void walk_sources(gPathstring const & folder, gPathstring const & leave_out,
                  std::string const & extensions, gSourceWalk & found);
