// What other programs have written: desktop entries, command lines, a help map. Whatever the bytes
// are, a command has few arguments and holds the address, and pages have one.

#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "app/shell/file_url.h"
#include "app/shell/window/desktop_entry.h"
#include "app/shell/window/help.h"
#include "app/shell/window/run_progress.h"
#include "vlb/gfilesystem.h"

namespace {

void expect(bool good) {
  if (!good)
    std::abort();
}

void check_command(std::string const & line) {
  std::vector<std::string> const command = Shell::filled_command(line, "ADDRESS");
  expect(command.size() <= 11);
  std::size_t places = 0;
  for (std::string const & argument : command)
    places += argument.find("ADDRESS") != argument.npos;
  expect(command.empty() || places > 0);
}

void check_progress(std::string const & status) {
  gRunProgress progress;
  gRunProgress::Clock::time_point const start;
  progress.take(status, start);
  progress.take(status, start + std::chrono::seconds(5));
  expect(progress.percent() >= -1 && progress.percent() <= 100);
  progress.text(start + std::chrono::seconds(9));
}

void check_map(std::string const & text) {
  static gPathstring const file = gFileSystem::get_temp_file_name("map");
  gFileSystem::write_file_atomic(file, text);
  gHelpMap map(file);
  for (int const number : {0, 1, -1, 16})
    expect(map.find(number).empty() || map.find(number).find(':') != std::string::npos);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  std::cerr.setstate(std::ios::failbit); // duplicates in maps are told there
  std::string const text(reinterpret_cast<char const *>(data), size);
  check_command(text);
  check_command(Shell::command_of_exec(Shell::desktop_value(text, "Desktop Entry", "Exec")));
  check_progress(text);
  check_map(text);
  for (char const c : Shell::file_url(text))
    expect(c > ' ' && c < 127);
  return 0;
}
