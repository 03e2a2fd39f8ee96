// The two option trees and the flags of a run.
#pragma once

#include <atomic>
#include <set>

#include "app/options/option_rows.h"
#include "store/cmapobj.h"
#include "vlb/gpathstring.h"
#include "vlb/gstrlist.h"

namespace Vapp {

extern cMapObj options;     // the project
extern cMapObj options_ini; // the user's settings

// Flags that cross threads: each has one writer, the other side polls.
extern std::atomic<bool> ana_active;    // a run is in progress
extern std::atomic<bool> ana_success;   // the intermediate code of the last run is usable
extern std::atomic<bool> output_active; // a conversion is in progress
extern std::atomic<bool> user_break;    // the user asked for an orderly stop

// Sources that the last run could not read whole, by their paths. The worker's while a run or a
// conversion is in progress.
std::set<gPathstring> & incomplete_files();

// Throws gExcUserBreak if user_break is set.
void poll_break();

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

// The digits of unitconfig for a unit type and a subentry; -1 if the subentry isn't permitted.
int unit_config(std::string_view unit_type, std::string_view subentry);
inline bool config_fill_out(int digits) {
  return digits >= 100;
}
inline bool config_automatic(int digits) {
  return digits >= 0 && digits % 100 >= 10;
}
inline bool config_verbatim(int digits) {
  return digits >= 0 && digits % 10 == 1;
}

// Makes a stored path absolute against the folder of the project file; returns its argument.
std::string & make_absolute_vlp(std::string & path);
// The same for the path under an option, as a path.
gPathstring option_path(gTextName name);

} // namespace Vapp
