// The desktop entry of the user's browser tells how it is started; where no desktop tells one,
// xdg-open does its best.

#include "app/shell/window/start_program.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <sstream>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "app/shell/file_url.h"
#include "app/shell/window/desktop_entry.h"
#include "vlb/gfilesystem.h"

namespace {

constexpr std::size_t most_arguments = 10;

std::string variable(char const * name) {
  char const * const value = std::getenv(name);
  return value ? value : "";
}

} // namespace

std::vector<std::string> Shell::split_command(std::string_view line) {
  std::vector<std::string> arguments;
  std::string argument;
  bool quoted = false, begun = false;
  auto const end = [&] {
    if (begun && arguments.size() < most_arguments)
      arguments.push_back(argument);
    argument.clear();
    begun = false;
  };
  for (char const c : line) {
    if (c == '"') {
      quoted = !quoted;
      begun = true;
    } else if (!quoted && (c == ' ' || c == '\t')) {
      end();
    } else {
      argument += c;
      begun = true;
    }
  }
  end();
  return arguments;
}

bool gUserDesktop::has_program(std::string const & name) {
  if (name.find('/') != name.npos)
    return ::access(name.c_str(), X_OK) == 0 && gFileSystem::file_exists(name);
  std::istringstream path(variable("PATH"));
  for (std::string folder; std::getline(path, folder, ':');) {
    gPathstring const file = gPathstring(folder.empty() ? "." : folder).append(name);
    if (!name.empty() && ::access(file.c_str(), X_OK) == 0 && gFileSystem::file_exists(file))
      return true;
  }
  return false;
}

// Forked twice, so that the program is nobody's child to wait for. A pipe that the start of the
// program closes tells whether it came so far.
bool gUserDesktop::start(std::vector<std::string> const & command) {
  if (command.empty() || !has_program(command.front()))
    return false;
  std::vector<char *> arguments;
  for (std::string const & argument : command)
    arguments.push_back(const_cast<char *>(argument.c_str()));
  arguments.push_back(nullptr);
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0)
    return false;
  pid_t const child = ::fork();
  if (child == 0) {
    if (::setsid() >= 0 && ::fork() == 0) {
      ::execvp(arguments.front(), arguments.data());
      [[maybe_unused]] ssize_t const told = ::write(ends[1], "!", 1);
    }
    ::_exit(0);
  }
  ::close(ends[1]);
  char fault = 0;
  bool good = child > 0;
  if (good) {
    ::waitpid(child, nullptr, 0);
    good = ::read(ends[0], &fault, 1) == 0;
  }
  ::close(ends[0]);
  return good;
}

namespace {

constexpr std::string_view page_extensions[] = {".htm", ".html"};

bool is_page(std::string_view extension) {
  return std::ranges::find(page_extensions, extension) != std::end(page_extensions);
}

// For what has no type here xdg-open knows best.
std::string type_of(std::string_view extension) {
  if (extension.empty())
    return "inode/directory";
  return extension == ".rtf" ? "application/rtf" : is_page(extension) ? "text/html" : "";
}

} // namespace

// The variable is a list of commands, of which the first one that is there counts.
std::string gUserDesktop::browser() {
  std::istringstream browsers(variable("BROWSER"));
  for (std::string command; std::getline(browsers, command, ':');) {
    std::vector<std::string> const words = Shell::split_command(command);
    if (words.empty() || !has_program(words.front()))
      continue;
    std::size_t const at = command.find("%s");
    return at == command.npos ? command : command.replace(at, 2, "%1");
  }
  return "";
}

std::string gUserDesktop::shell_command(std::string const & verb, std::string const & extension) {
  if (verb != "open")
    return "";
  std::string command = is_page(extension) ? browser() : "";
  std::string const type = type_of(extension);
  if (command.empty() && !type.empty())
    command = Shell::desktop_command(type);
  if (command.empty() && has_program("xdg-open"))
    command = "xdg-open \"%1\"";
  return command;
}

// The last "%1" of an argument is the one that counts.
std::vector<std::string> Shell::filled_command(std::string const & shell_command,
                                               std::string const & what) {
  std::vector<std::string> arguments = split_command(shell_command);
  bool placed = false;
  for (std::string & argument : arguments) {
    if (std::size_t const at = argument.rfind("%1"); at != argument.npos) {
      argument.replace(at, 2, what);
      placed = true;
    }
  }
  if (!placed && !arguments.empty())
    arguments.push_back(what);
  return arguments;
}

bool Shell::open_file(gPathstring const & path, gDesktop & desktop) {
  std::string const name = path.extension();
  std::string const extension = name.empty() ? "" : "." + name;
  std::string const command = desktop.shell_command("open", extension);
  std::string const what = is_page(extension) ? file_url(path) : std::string(path);
  return desktop.start(filled_command(command, what));
}
