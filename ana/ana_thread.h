// One analysis run, from the options to the files in the output folder.
#pragma once

#include "vlb/gpathstring.h"

// The entry of the worker thread. Never throws; the outcome is Vapp::ana_success. All tables of
// the run are empty afterwards, and no temporary file is left.
void ana_thread();

// Runs a script, and by it all stages. True if the script was read to its end and everything that
// had to be written could be written.
bool ana_run_script(gPathstring const & script);

// Begins reporting anew: counts, levels and suppressed numbers from the options, and ana.log in
// the output folder. False if the log can't be written, which is reported.
bool ana_open_log();
