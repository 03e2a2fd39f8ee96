// What has to be true before a run, whoever starts it.
#pragma once

#include <memory>

#include "ana/output_folder.h"

// How to treat an output folder with something in it, where the user wants to be warned.
enum class gOverwrite {
  ask,            // always ask
  ask_foreign,    // ask, unless all of it was left there by earlier runs
  refuse_foreign, // the same, but refuse where a question would have to be asked
  allow,          // go on without a question
};

// True if the project has input files, a script and an output folder. Shows a box with the first
// that is missing.
bool ana_check_project();

// Makes the output folder or takes away what runs have left in it, and keeps other runs out of it
// as long as the result lives. What stands against it is asked or shown through the port. Null if
// the run must not start.
std::unique_ptr<gOutputFolder> ana_prepare_folder(gOverwrite overwrite);
