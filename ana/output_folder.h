// The folder that a run writes into, and the rules by which its contents may be deleted.
#pragma once

#include <set>
#include <string>

#include "vlb/gpathstring.h"

// The folder of the option out_dir. A small file in it (its record) lists what a run left there.
class gOutputFolder {
public:
  gOutputFolder();
  ~gOutputFolder();
  gOutputFolder(gOutputFolder const &) = delete;
  gOutputFolder & operator=(gOutputFolder const &) = delete;

  gPathstring const & path() const { return path_; }
  bool exists() const;
  bool empty() const;
  // True if everything in it was left there by an earlier run.
  bool only_own_files() const;
  // Why the folder must never be emptied: it is, or holds, the root, the home folder, the
  // project's folder, the script's folder or a folder with input files. Empty if it may.
  gString protection() const;

  // Makes the folder and those above it.
  bool create();
  // Keeps other runs out for the life of this object. False if one is at work in the folder.
  bool lock();
  // Deletes the contents and begins a new record.
  bool clear();
  // Writes down what now lies in the folder as left by a run.
  void record_contents();

private:
  std::set<std::string> contents() const;
  std::set<std::string> recorded() const;
  bool is_own(std::string const & name, std::set<std::string> const & known) const;

  gPathstring path_;
  int lock_ = -1;
};
