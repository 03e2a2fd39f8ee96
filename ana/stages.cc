// The order of a run. It happens inside the script: the analysis when the parser has read the word
// @document, the writing when it has read the last command.

#include "ana/stages.h"

#include "ana/anadat/tables.h"

void gStages::run() {
  ana_input_files();
  failed_ |= !ana_preprocess(gSrcFiles);
  ana_text_units(gInputFiles);
  ana_program_code(gInputFiles);
  ana_associate();
  ana_update_units();
  ana_check();
  ana_delete_temp();
}

void gStages::generate(gCmdSeq & commands, std::set<gString> const & outputs,
                       gString const & output) {
  failed_ |= !ana_generate(commands, outputs, output);
}
