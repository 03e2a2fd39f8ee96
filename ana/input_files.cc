// Reads the file groups of the project. Fills gSrcFiles.

#include "ana/anadat/tables.h"
#include "ana/stages.h"
#include "vlb/gfilelist.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

void ana_input_files() {
  gSrcFiles.clear();
  gSrcFile::set_cpp_ext(gInput->cpp_ext);
  gSrcFile::set_pas_ext(gInput->pas_ext);
  gFileList found(0);
  found.cur_dir(gInput->root);
  for (gFileGroup const & group : gInput->groups)
    found.add(group.paths, group.files, 1);
  for (gString const & problem : found.problems())
    Msg::log() << problem << std::endl;
  for (gPathstring const & path : found.left_out())
    Msg::log(Msg::line_feed_in_name, path);
  for (gSrcFile const & file : found.files())
    gSrcFiles.emplace_back(file.path(), "", 0);
}
