// A small project in a folder of its own, analysed in this process.
#pragma once

#include <map>
#include <string>

#include "support/temp_folder.h"
#include "support/test_outside.h"

class RunProject : public TempFolder {
public:
  // Makes an empty folder and the options of a new project, whose input is every file of the
  // folder "in", whose script is "doc.vls" and whose output folder is "out".
  RunProject();
  ~RunProject();

  // KEY=VALUE, as on the command line.
  void set(std::string const & assignment) const;
  // Runs with an output folder that was emptied before. True if the run succeeded.
  bool run();
  // The same without emptying the folder.
  bool analyze();

  // The output files by name, the log among them, with the folder of the project as "DIR".
  std::map<std::string, std::string> output() const;
  std::string log() const { return output()["ana.log"]; }
  // The log from its first stage on, without the lines that only name a file.
  std::string reports() const;
  // Files that lie in the folder for temporary files.
  int temp_files() const;

  TestOutside outside;
};

// One file of text in several: "%% NAME" begins a file, "%set KEY=VALUE" sets an option. Files
// without a folder of their own go to "in", but for doc.vls.
void write_all(RunProject const & project, std::string const & text);

std::string replaced(std::string text, std::string const & what, std::string const & by);

// Compares with the files of a folder; with VELLUMAR_UPDATE=1 it writes them anew.
void compare_golden(std::string const & folder, std::map<std::string, std::string> const & files);
