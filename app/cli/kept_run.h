// What is left of a run that went well: enough to answer as it did, where it needn't be done again.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ana/ana_thread.h"
#include "app/cli/cli_outside.h"
#include "conv/conversion.h"
#include "vlb/folder_snapshot.h"
#include "vlb/witness.h"

struct gKeptRun {
  std::string key;          // of what was asked
  gWitness::gSights sights; // what the run went by
  gFolderSnapshot left;     // the output folder behind it
  gRunResult analysis;      // without what the options keep
  gConversionResult last;   // of the last conversion
  std::vector<gShownLine> lines;
  std::vector<gReport> reports;
  Msg::type worst = Msg::all;
};

std::string bytes_of_run(gKeptRun const & run);
// Nothing if the bytes are none of those.
std::optional<gKeptRun> run_of_bytes(std::string_view bytes);
