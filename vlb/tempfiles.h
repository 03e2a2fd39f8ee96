// Where the bytes of temporary files are.
#pragma once

#include <memory>
#include <string>

#include "vlb/gpathstring.h"

// A temporary file (gFileSystem::get_temp_file_name) stays in memory until the texts of all of them
// outgrow a budget; what is written then goes to the disk. gFileSystem::read_file, gInputText and
// gOutputFile see no difference. Safe to use from several threads.
class gTempFiles {
public:
  // The copies of most projects' sources fit, and what analyses larger ones has some to spare.
  // VELLUMAR_TEMP_MEMORY in the environment, in MB, stands for another budget.
  static constexpr std::size_t usual_budget = std::size_t(256) << 20;

  // The text of a file in memory; null for any other file.
  static std::shared_ptr<std::string const> text(gPathstring const & path);
  // True for a path in the folder of this process, whether the file is there or not.
  static bool holds(std::string_view path);
  // Takes bytes for a text that is being written; false if the budget doesn't have them.
  static bool reserve(std::size_t bytes);
  static void release(std::size_t bytes);
  // Gives a file in memory its new text, whose bytes were reserved. False if the file was removed
  // meanwhile.
  static bool keep(gPathstring const & path, std::string text);
  // Moves a file in memory to the disk, empty and open for writing; its text is dropped. A
  // descriptor that the caller closes, -1 on failure.
  static int spill(gPathstring const & path);
};
