// The program under test, run in a folder of its own.
#pragma once

#include <string>

struct Answer {
  int status = 0;
  std::string out;
  std::string err;
};

class Sandbox {
public:
  Sandbox();
  ~Sandbox();

  std::string path(std::string const & name) const { return dir_ + "/" + name; }
  void write(std::string const & name, std::string const & text) const;
  bool exists(std::string const & name) const;
  // A project "p.vlp" with a script, one source and the output folder "out".
  void make_project() const;
  // Runs "vellumar ARGUMENTS" in the folder; the arguments go through the shell.
  Answer run(std::string const & arguments) const;
  // Starts it without waiting; the process number.
  int start(std::string const & arguments) const;

private:
  std::string dir_;
};

std::string text_of(std::string const & path);
