// What the reading of a source depends on besides its bytes and the macros.
#pragma once

#include <string>

// Of the program, and of the options of the loaded project that reading could ask. Not the folders
// and the groups of inputs, titles, nor what concerns targets and the showing of reports: so a file
// that is added makes nobody read the others again.
std::string key_of_reading();
