// The files that folders and wildcards stand for.
#pragma once

#include <set>
#include <vector>

#include "vlb/gsrcfile.h"

// An ordered collection of files; a file enters at most once. The order is that of gSrcFile.
class gFileList {
public:
  struct ByPath {
    bool operator()(gPathstring const & a, gPathstring const & b) const;
  };

  explicit gFileList(unsigned);

  // Sets the folder for relative paths; false if it doesn't exist.
  bool cur_dir(gPathstring const & dir);
  // `paths`: folders, `files`: names or wildcards, both separated by ";". Adds each matching
  // regular file. An empty `paths` stands for the current folder. A component of a folder may have
  // wildcards too, and a component "**" stands for the folder and all below it. Hidden files and
  // folders only match a pattern that begins with a point itself. A file name without wildcards
  // that doesn't exist is compared without regard to case. A file name with folders is taken
  // against each of `paths`. What can't be found (a folder that is missing, a pattern without a
  // file) is told in problems().
  void add(gString const & paths, gString const & files, int flags);
  void clear();

  std::vector<gSrcFile> files() const;
  std::size_t size() const { return files_.size(); }
  std::vector<gString> const & problems() const { return problems_; }
  // Files that can't be taken, since their path holds a line feed.
  std::set<gPathstring, ByPath> const & left_out() const { return left_out_; }

private:
  struct Pattern;
  std::vector<gPathstring> folders_of(gString const & paths);
  static std::vector<gPathstring> folders_below(gPathstring const & folder, gString const & below);
  void add_from(gPathstring const & folder, std::vector<Pattern> & patterns);
  void add_file(gPathstring const & path, Pattern & pattern);

  gPathstring cur_dir_;
  std::set<gPathstring, ByPath> files_, left_out_;
  std::vector<gString> problems_;
};
