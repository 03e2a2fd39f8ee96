// Where the program lies, and the user's settings beside it.
#pragma once

#include <string>

#include "vlb/gpathstring.h"

namespace Vapp {

// The folder of the program file, unless another one was set.
gPathstring const & program_dir();
void set_program_dir(gPathstring const & folder);
// The folder of the shipped defaults: "ini" in the program's folder. The settings file lies there,
// too, if the user may write there; else in the user's own folder for settings.
gPathstring ini_dir();

// Reads "vellumar.ini" into options_ini; makes the folder where it is missing. Values of a wrong
// type become their defaults. No file is no fault; false, with the reason, if there is one that
// can't be read.
bool load_settings(std::string * reason = nullptr);
// Writes it; a file that can't be read is kept with ".bad" behind its name. False if the file can't
// be written.
bool save_settings();

} // namespace Vapp
