// The folder of one process for temporary files, told apart from those that nobody owns any more.
#pragma once

#include <string>
#include <string_view>

#include "vlb/gpathstring.h"

namespace Vlb {

// Makes a folder that only this user can enter, and holds it for as long as the result, a
// descriptor that the caller closes, is open. -1 if it can't be made.
int make_held_folder(char const * path);

// Removes the folders that processes which were killed have left there: those of this user that
// nobody holds, named like temporary ones with this prefix, with the files in them that are named
// so, too. What else lies there stays.
void remove_killed_folders(gPathstring const & dir, std::string_view prefix);

} // namespace Vlb
