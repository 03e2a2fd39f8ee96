// Starting other programs, and finding the one that opens a kind of file.
#pragma once

#include <string>
#include <vector>

#include "vlb/gpathstring.h"

// What the window needs of the desktop; tests have one of their own.
class gDesktop {
public:
  virtual ~gDesktop() = default;
  // Starts a program, looked for in PATH, with its arguments behind it, and doesn't wait for it.
  // False if it can't be started.
  virtual bool start(std::vector<std::string> const & command) = 0;
  // True if a program of that name can be started.
  virtual bool has_program(std::string const & name) = 0;
  // The command line by which the desktop opens files of that extension, such as ".htm", or
  // folders, which have none; "%1" stands for the file. Empty if there is none.
  virtual std::string shell_command(std::string const & verb, std::string const & extension) = 0;
};

// The desktop of this machine.
class gUserDesktop : public gDesktop {
public:
  bool start(std::vector<std::string> const & command) override;
  bool has_program(std::string const & name) override;
  std::string shell_command(std::string const & verb, std::string const & extension) override;

private:
  std::string browser(); // of the environment; empty without one
};

namespace Shell {

// A command line in its arguments: blanks part them, double quotes keep blanks. Ten at most.
std::vector<std::string> split_command(std::string_view line);
// The command that opens something, made of an association's command line.
std::vector<std::string> filled_command(std::string const & shell_command,
                                        std::string const & what);
// Opens a page in the browser, anything else by what the desktop has for it; false if that can't be
// started. The path is absolute.
bool open_file(gPathstring const & path, gDesktop & desktop);

} // namespace Shell
