// The order of a run. It happens inside the script: the analysis when the parser has read the word
// @document, the writing when it has read the last command.

#include "ana/stages.h"

#include "ana/anadat/tables.h"
#include "vlb/gmsghandler.h"

void gStages::read_classic() {
  failed_ |= !ana_preprocess(gSrcFiles);
  Msg::log.stage(gRunStage::text_units);
  std::vector<gFileFacts> files = ana_text_units(gInputFiles);
  Msg::log.stage(gRunStage::code);
  ana_program_code(files);
}

void gStages::read_modern() {
  ana_read_sources(gSrcFiles);
  ana_join_elements();
  ana_join_topics();
  ana_title_references();
}

void gStages::run() {
  Msg::log.stage(gRunStage::preprocess);
  ana_input_files();
  if (gInput->modern)
    read_modern();
  else
    read_classic();
  Msg::log.stage(gRunStage::associate);
  ana_associate();
  if (gInput->modern)
    ana_copy_texts();
  Msg::log.stage(gRunStage::update);
  ana_update_units();
  Msg::log.stage(gRunStage::check);
  ana_check();
  ana_delete_temp();
  Msg::log.stage(gRunStage::script);
}

void gStages::generate(gCmdSeq & commands, std::set<gString> const & outputs,
                       gString const & output) {
  Msg::log.stage(gRunStage::generate);
  failed_ |= !ana_generate(commands, outputs, output);
}
