// The sources below a folder.
#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

#include <sys/types.h>

#include "vlb/gpathstring.h"

struct gSourceFolder {
  gPathstring path;            // absolute
  std::vector<gString> chosen; // names of the sources, where not all of the folder count
};

// What of the folders counts. Patterns have "*" and "?".
struct gWalkFilter {
  bool recursive = true;
  std::vector<std::string> names;    // patterns of which a name has to fit one; empty for any name
  std::vector<gPathstring> excluded; // folders and files, absolute
  std::vector<std::string> excluded_patterns; // of whole paths

  bool takes(gPathstring const & file) const;
  bool enters(gPathstring const & folder) const;
};

struct gSourceWalk {
  gWalkFilter filter;
  std::vector<gPathstring> roots;     // where links may lead to, all links resolved
  std::vector<gSourceFolder> folders; // that hold sources, each in front of those below it
  std::set<std::string> extensions;   // that occur, in lower case
  std::size_t files = 0;
  std::vector<gPathstring> left_out; // with a name that can't stand in a list
  std::vector<gPathstring> outside;  // links to files that don't lie below a root
  std::vector<gPathstring> unreadable;
  std::set<std::pair<dev_t, ino_t>> seen; // so that nothing counts twice, whatever it is called
};

// True if what a path leads to lies below one of the folders, which have no links in them.
bool lies_below(std::vector<gPathstring> const & roots, gPathstring const & path);

// Goes through a folder and all below it, but not into hidden folders, folders of tools
// ("node_modules", "CVS"), build folders, `leave_out`, and those where it has been. Symbolic links
// to folders aren't followed, and those to files only if the file lies below a root: a link must
// not bring to light what isn't in the tree. `extensions` are lists as in the options ana/cpp_ext
// and ana/pas_ext.
void walk_sources(gPathstring const & folder, gPathstring const & leave_out,
                  std::string const & extensions, gSourceWalk & found);
// Takes a file that the user names. False if its extension isn't among those.
bool take_source(gPathstring const & file, std::string const & extensions, gSourceWalk & found);
// The name of a file has one of the extensions.
bool has_extension(gPathstring const & name, std::string const & extensions);
