// What runs have written into a folder, so that nothing else is ever deleted there.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "vlb/gpathstring.h"

namespace Vlb {

// What lies below a folder, by its name from there; names of folders end with a separator. Links
// aren't followed.
struct FolderContents {
  std::set<std::string> names;
  bool complete = true; // false if a part couldn't be read
};
FolderContents read_contents(gPathstring const & folder);

} // namespace Vlb

// A small file in an output folder. A name is entered in front of the writing, so that a run that
// is cut off anywhere leaves nothing unknown. Where no record is, nothing is known, and nothing is
// entered: the folder is none that a run has begun.
class gFolderRecord {
public:
  static constexpr char const * file_name = ".vellumar";

  explicit gFolderRecord(gPathstring const & folder);

  bool exists() const { return exists_; }
  bool knows(std::string const & name) const { return names_.contains(name); }
  std::set<std::string> const & names() const { return names_; }

  // Replaces the record, or begins it. False if it can't be written.
  bool write(std::set<std::string> names);
  // Enters what is about to be written. False if the record can't be written.
  bool add(std::set<std::string> const & names);
  // The same for files, with the folders that have to be made for them, unless one would be written
  // over what no run has written, or through a link. The name in the way; empty if there is none.
  std::string claim(std::set<std::string> const & files);

private:
  bool can_write(std::string const & file, std::set<std::string> & entered) const;

  gPathstring folder_;
  std::set<std::string> names_;
  bool exists_ = false;
};
