// A Doxyfile: the settings of a project that has its comments for Doxygen.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "vlb/gpathstring.h"

class gDoxyfile {
public:
  // Reads the file and those that it includes from its own folder. Nothing, with the reason and its
  // place in `fault`, if it can't be read, isn't text, or a line is no assignment.
  static std::optional<gDoxyfile> read(gPathstring const & file, std::string & fault);

  // The words of a value; none for a key that isn't there.
  std::vector<std::string> const & list(std::string const & key) const;
  // The words as one text.
  std::string text(std::string const & key) const;
  bool flag(std::string const & key, bool standard) const;
  // The same as paths; what is relative stands in the folder of the file.
  std::vector<gPathstring> paths(std::string const & key) const;
  gPathstring const & folder() const { return folder_; }
  // Keys that have a value and mean nothing here.
  std::vector<std::string> left_out() const;

private:
  gPathstring folder_; // absolute
  std::map<std::string, std::vector<std::string>> values_;

  friend class gDoxyfileReader;
};
