// How a folder was left, to tell later whether anybody has touched it.
#pragma once

#include <map>
#include <set>
#include <string>

#include "vlb/content_hash.h"
#include "vlb/gpathstring.h"

struct gFolderSnapshot {
  std::map<std::string, gContentHash> tops;  // what stands for an entry of the folder and all below
  std::map<std::string, gContentHash> young; // bytes of files whose time tells too little

  // Of the folder as it is. What lies in the entries `left_out` isn't looked at.
  static gFolderSnapshot take(gPathstring const & folder,
                              std::set<std::string> const & left_out = {});
  // True if all is as it was at take(folder).
  bool holds(gPathstring const & folder) const;
  // What another one has found in other entries of the same folder.
  void add(gFolderSnapshot other);
};
