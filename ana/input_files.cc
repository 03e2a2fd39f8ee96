// Reads the file groups of the project. Fills gSrcFiles.

#include "ana/anadat/tables.h"
#include "ana/stages.h"
#include "app/options/options.h"
#include "vlb/gfilelist.h"
#include "vlb/gmsghandler.h"

void ana_input_files() {
  gSrcFiles.clear();
  gSrcFile::set_cpp_ext(Vapp::option_string("ana/cpp_ext"));
  gSrcFile::set_pas_ext(Vapp::option_string("ana/pas_ext"));
  gFileList found(0);
  found.cur_dir(Vapp::option_path("inputcurdir"));
  if (cRef<cObj> const groups = Vapp::option("inputfiles")) {
    for (cIterObj group = groups->begin(); group.valid(); group++)
      found.add(cat::as_string(group->at("path")), cat::as_string(group->at("files")), 1);
  }
  for (gString const & problem : found.problems())
    Msg::log() << problem << std::endl;
  for (gPathstring const & path : found.left_out()) {
    gString shown;
    Vlb::add_shown(shown, path);
    Msg::log() << "Left out because of a line feed in its name: " << shown << std::endl;
  }
  for (gSrcFile const & file : found.files())
    gSrcFiles.emplace_back(file.path(), "", 0);
}
