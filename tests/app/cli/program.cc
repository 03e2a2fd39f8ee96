#include "program.h"

#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

Sandbox::Sandbox() {
  fs::create_directory(path("tmp"));
}

bool Sandbox::exists(std::string const & name) const {
  return fs::exists(fs::symlink_status(path(name)));
}

void Sandbox::make_project() const {
  write("doc.vls", "@document\n@outfilter\n");
  write("src/a.h", "/* @function Does it. @nix */\nvoid f();\n");
  run("new p.vlp --script doc.vls --out out --input 'src|*.h'");
  run("set p.vlp ana/dialect=classic ana/alloc/gen_unit=11");
}

// All that the program writes lies in the folder; the last quote is left open.
std::string Sandbox::place() const {
  return "cd '" + path() + "' && TMPDIR='" + path("tmp") + "' XDG_CACHE_HOME='" + path("tmp/cache");
}

Answer Sandbox::run(std::string const & arguments) const {
  std::string const command = place() + "' " VELLUMAR_PROGRAM " " + arguments + " >'" +
                              path("tmp/1") + "' 2>'" + path("tmp/2") + "' </dev/null";
  int const status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), read("tmp/1"),
          read("tmp/2")};
}

// Other threads may hold the locks of the memory while it forks, so the child makes nothing.
int Sandbox::start(std::string const & arguments) const {
  std::string const command = place() + "' exec 2>/dev/null " VELLUMAR_PROGRAM " " + arguments;
  int const child = fork();
  if (child == 0) {
    execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
    _exit(127);
  }
  return child;
}

void Sandbox::wait_for(std::string const & file, std::string const & text) const {
  for (int i = 0; i < 4000; ++i) {
    if (read(file).find(text) != std::string::npos)
      return;
    usleep(5000);
  }
  ADD_FAILURE() << text;
}

int Sandbox::end_of(int child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}
