// The program under test, run in a folder of its own.
#pragma once

#include <string>

#include "support/temp_folder.h"

struct Answer {
  int status = 0;
  std::string out;
  std::string err;
};

class Sandbox : public TempFolder {
public:
  Sandbox();

  bool exists(std::string const & name) const;
  // A project "p.vlp" with a script, one source and the output folder "out", in the classic
  // dialect.
  void make_project() const;
  // Runs "vellumar ARGUMENTS" in the folder; the arguments go through the shell.
  Answer run(std::string const & arguments) const;
  // Starts it without waiting; the process number. What it tells is lost, if not sent elsewhere.
  int start(std::string const & arguments) const;
  // Waits until a file holds the text; a failure of the test if that never comes.
  void wait_for(std::string const & file, std::string const & text) const;
  // The status of a process that was started, the negative signal if one ended it.
  static int end_of(int child);

private:
  std::string place() const;
};
