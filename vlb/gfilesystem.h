// Operations over the file system of the machine.
#pragma once

#include <list>
#include <memory>
#include <vector>

#include "vlb/gpathstring.h"

// One entry of a folder, filled by gFileSystem::find_first.
struct gFileInfo {
  gString name; // without its folder
  bool is_dir = false;
  // What find_next goes through.
  std::shared_ptr<std::vector<std::pair<std::string, bool>>> rest;
  std::size_t next = 0;
};

// All operations report by their result; none throws.
class gFileSystem {
public:
  static constexpr long no_match = -1;

  static bool file_exists(gPathstring const & path);
  static bool dir_exists(gPathstring const & path);
  static bool mk_dir(gPathstring const & path);
  // Makes the folder and all missing folders above it.
  static bool mk_dirs(gPathstring const & path);
  // Deletes all entries of the folder; the folder stays. Symbolic links are removed, not followed.
  // Without `recursive` the folders in it stay with what they hold. False if something that had to
  // go is still there.
  static bool clear_dir(gPathstring const & path, bool recursive);
  // The first entry that matches the pattern (a folder, a separator, a name with wildcards), by
  // byte order of the names; no_match if there is none.
  static long find_first(gPathstring const & pattern, gFileInfo & info);
  // The entry behind it; false at the end.
  static bool find_next(gFileInfo & info);
  static gPathstring get_curdir();
  static gPathstring temp_dir();
  // The name of a new empty file, beginning with the prefix (15 bytes at most). It is written with
  // gOutputFile and read with read_file or gInputText, since it stays in memory while there is room
  // (vlb/tempfiles.h), else in a folder of this process inside temp_dir() that no one else can
  // enter. Empty text on failure. The file is entered in a list, and goes at the latest when the
  // process ends; a handler of a signal that ends the process calls end_temp_files().
  static gPathstring get_temp_file_name(gString const & prefix);
  // Removes a file; true if it is gone. A temporary file also leaves the list.
  static bool remove(gPathstring const & path);
  // Removes every temporary file that is still listed, and their folder. What a parent process
  // listed isn't touched.
  static void remove_temp_files() noexcept;
  // The same while other threads go on, for a process that is about to go: no file is made from
  // now on. Safe to call in a signal handler.
  static void end_temp_files() noexcept;
  // Non-zero if the name matches a pattern with "*" and "?", without regard to case.
  static int matches(gString const & name, gString const & pattern);
  // Elements at the separator ";", with the white space around them removed; empty ones are left
  // out.
  static void split_path_list(gString const & list, std::list<gPathstring> & out, bool);
  // The whole file; false if it can't be read, is no regular file or has 2 GB or more.
  static bool read_file(gPathstring const & path, std::string & text);
  // Writes beside the file, flushes and renames, so that a failure never costs the old file. The
  // mode of an existing file stays; a symbolic link stays and its target is written.
  static bool write_file_atomic(gPathstring const & path, std::string_view text);
};
