// The two option trees and the flags of a run.
#pragma once

#include <set>

#include "app/options/option_rows.h"
#include "app/options/run_flags.h"
#include "store/cmapobj.h"
#include "vlb/gpathstring.h"
#include "vlb/gstrlist.h"

namespace Vapp {

extern cMapObj options;     // the project
extern cMapObj options_ini; // the user's settings

// Sources that the last run could not read whole, by their paths.
std::set<gPathstring> & incomplete_files();

// The value under a path of keys with "/" between them, such as "ana/alloc/order"; null if a step
// is missing or nil.
cRef<cObj> option(std::string_view path);
// The same with keys of any form.
cRef<cObj> option(std::initializer_list<std::string_view> keys);

// Values of the trees by their rows; the default of the row for what is missing or of the wrong
// type.
bool option_bool(gFlagName name);
int option_int(gNumberName name);
gString option_string(gTextName name);

// Makes a stored path absolute against the folder of the project file; returns its argument.
std::string & make_absolute_vlp(std::string & path);
// The same for the path under an option, as a path.
gPathstring option_path(gTextName name);

} // namespace Vapp
