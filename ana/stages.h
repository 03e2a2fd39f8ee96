// The stages of a run, as the script asks for them.
#pragma once

#include <list>
#include <set>

#include "ana/anadat/gfilefacts.h"
#include "ana/cmdpar/script_stages.h"
#include "vlb/gsrcfile.h"

class gStages : public gScriptStages {
public:
  void run() override;
  void generate(gCmdSeq & commands, std::set<gString> const & outputs,
                gString const & output) override;
  void refused() override { failed_ = true; }
  // True if something that the run owes could not be written, or the script was refused.
  bool failed() const { return failed_; }

private:
  void read_classic();
  void read_modern();

  bool failed_ = false;
};

// Each stage works on the tables of ana/anadat/tables.h; none calls another. Faults are reported,
// and cost no more than the file or item that they are in; gExcUserBreak passes through.
void ana_input_files();
// False if a temporary file couldn't be written.
bool ana_preprocess(std::list<gSrcFile> const & files);
// Answers what is left to know of each file, for the code.
std::vector<gFileFacts> ana_text_units(std::list<gSrcFile> const & files);
void ana_program_code(std::vector<gFileFacts> & files);
// The modern dialect in place of these three.
void ana_read_sources(std::list<gSrcFile> const & files);
// Joins what several places declare.
void ana_join_elements();
// Joins what several comments say of one topic.
void ana_join_topics();
// References to pages get their titles.
void ana_title_references();
void ana_associate();
// Texts that stand for those of other elements.
void ana_copy_texts();
void ana_update_units();
void ana_check();
void ana_delete_temp();

// Runs the output commands and writes the document. False if something couldn't be written.
bool ana_generate(gCmdSeq & commands, std::set<gString> const & outputs, gString const & output);
// Path of the .atc file for the option `output` of @document; empty if it leads out of the output
// folder.
gPathstring ana_atc_path(gString const & output);
// The head of the .atc file, whose path stands in gFindings.
void ana_atc_header(std::ostream & stream, std::set<gString> const & outputs);
