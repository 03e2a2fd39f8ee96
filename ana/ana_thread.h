// One analysis run, from the options to the files in the output folder.
#pragma once

#include <set>

#include "app/options/run_input.h"

// What a run found.
struct gRunResult {
  bool success = false;             // the intermediate code is usable
  gPathstring atc_file;             // its path; empty if none was begun
  std::set<gPathstring> incomplete; // sources that could not be read whole
  std::string read;                 // what was read, in words; empty in the classic dialect
};

// "4,812 declarations, 1 stretch skipped".
std::string ana_read_words(std::size_t declarations, std::size_t skipped);

// The entry of the worker thread. Never throws. All tables of the run are empty afterwards, and no
// temporary file is left.
gRunResult ana_thread(gRunInput input);

// Runs a script, and by it all stages. True if the script was read to its end and everything that
// had to be written could be written.
bool ana_run_script(gPathstring const & script);

// Begins reporting anew: counts, levels and suppressed numbers from the input, and ana.log in
// the output folder. False if the log can't be written, which is reported.
bool ana_open_log();
