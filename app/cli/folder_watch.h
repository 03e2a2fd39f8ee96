// Tells when files below some folders change.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

// What is looked at. Paths are absolute.
struct gWatchedPlaces {
  std::vector<std::string> trees;   // folders with all below them, but for hidden ones
  std::vector<std::string> folders; // by themselves
  std::set<std::string> files;      // and their folders aren't looked at otherwise
  std::string leave_out;            // a folder, with all below it: the output
  // Whether a file below trees and folders counts, by its name; all without it.
  std::function<bool(std::string const & name)> wanted;
};

// Works with the kernel's notes about folders. Editors write a file in several steps, so a change
// is told when nothing more has happened for a while.
class gFolderWatch {
public:
  gFolderWatch();
  ~gFolderWatch();
  gFolderWatch(gFolderWatch const &) = delete;
  gFolderWatch & operator=(gFolderWatch const &) = delete;

  // False if the kernel gives none.
  bool good() const { return notes_ >= 0; }
  // Looks at these places from now on. Answers what can't be watched.
  std::vector<std::string> watch(gWatchedPlaces places);
  // The kernel gives no more of them.
  bool full() const { return full_; }
  // Waits until `stop`, a descriptor, can be read: nothing then. Or until something has changed and
  // rests: the paths, sorted; a folder's stands for what may have happened in it unseen.
  std::set<std::string> wait(int stop, std::chrono::milliseconds rest);

private:
  int note(std::string const & folder, std::string const & wish);
  void add(std::string const & folder, bool tree);
  void add_below(std::string const & folder);
  bool leaves_out(std::string const & path) const;
  void take_notes(std::set<std::string> & changed);
  void take(int number, std::uint32_t what, std::string const & name,
            std::set<std::string> & changed);

  struct Folder {
    std::string path;
    bool tree = false, files = false; // why it is watched
  };

  int notes_;
  gWatchedPlaces places_;
  std::map<int, Folder> folders_; // by the kernel's numbers
  std::vector<std::string> refused_;
  bool full_ = false;
};
