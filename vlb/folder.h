// What a folder holds, and the folders that a pattern stands for.
#pragma once

#include <vector>

#include "vlb/gpathstring.h"

namespace Vlb {

enum class EntryKind { file, folder, link, other };

struct FolderEntry {
  gString name; // without the folder
  EntryKind kind;

  bool hidden() const { return name.front() == '.'; }
};

// All entries but "." and "..", in byte order of their names; empty for what can't be read.
std::vector<FolderEntry> read_folder(gPathstring const & folder);
// The same for who puts things in order, and finds nothing there that a result depends on: no
// witness is told.
std::vector<FolderEntry> list_folder(gPathstring const & folder);

// What an entry leads to, links followed.
bool leads_to_file(gPathstring const & folder, FolderEntry const & entry);
bool leads_to_folder(gPathstring const & folder, FolderEntry const & entry);

bool has_wildcard(std::string_view text);

// The existing folders that an absolute, normalised path stands for. Its components may have "*"
// and "?"; a component "**" stands for the folder itself and all below it. Below it hidden folders
// are left out, and no folder comes twice, however links lead to it.
std::vector<gPathstring> expand_folders(gPathstring const & pattern);

} // namespace Vlb
