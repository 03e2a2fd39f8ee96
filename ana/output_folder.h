// The folder that a run writes into, and what may be deleted there.
#pragma once

#include <set>
#include <string>

#include "store/cobj.h"
#include "vlb/gpathstring.h"

// What no run may delete; all paths are absolute.
struct gProtectedPlaces {
  gPathstring project;    // its folder
  gPathstring script;     // the file
  gPathstring input_root; // what input paths are relative to
  cRef<cObj> inputs;      // the file groups; may be null

  static gProtectedPlaces of_options();
};
// The text of a refusal if the folder exists and must never be written into: it is, or holds, the
// root, the home folder, the project's folder, the script's folder or a folder with input files.
// Empty if it may.
gString protected_folder_text(gPathstring const & folder, gProtectedPlaces const & places);

// The folder of the option out_dir. Its record (vlb/folder_record.h) lists what runs have written;
// nothing else is ever deleted, whatever the user answers.
class gOutputFolder {
public:
  gOutputFolder();
  ~gOutputFolder();
  gOutputFolder(gOutputFolder const &) = delete;
  gOutputFolder & operator=(gOutputFolder const &) = delete;

  gPathstring const & path() const { return path_; }
  bool exists() const;
  bool is_empty() const;
  // A file in it that no run has written; empty if there is none.
  gString foreign_file() const;
  // Such a file, or folder, in the place of one that every run writes.
  gString file_in_the_way() const;

  // Makes the folder and those above it.
  bool create();
  // Keeps other runs out for the life of this object. False if one is at work in the folder.
  bool lock();
  // Deletes what runs have left, but for finished documentation, and begins a new record. Cut off
  // anywhere, it can be done again.
  bool clear();
  // Forgets what is no longer there.
  void record_contents();

private:
  bool settle_results();
  std::string map_file() const;

  gPathstring path_;
  int lock_ = -1;
};
