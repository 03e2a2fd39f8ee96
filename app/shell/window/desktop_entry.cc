// Desktop files are lines of "key=value" under "[section]". A list of associations names entries by
// their file names; an entry's Exec is the command line, with letters for what stands in it.

#include "app/shell/window/desktop_entry.h"

#include <cstdlib>
#include <sstream>
#include <vector>

#include "vlb/gfilesystem.h"

namespace {

std::string variable(char const * name) {
  char const * const value = std::getenv(name);
  return value ? value : "";
}

gPathstring in_home(char const * name, char const * standard) {
  std::string const value = variable(name);
  return value.empty() ? gPathstring(variable("HOME")).append(standard) : gPathstring(value);
}

std::vector<gPathstring> data_folders() {
  std::vector<gPathstring> folders = {in_home("XDG_DATA_HOME", ".local/share")};
  std::string list = variable("XDG_DATA_DIRS");
  std::istringstream parts(list.empty() ? "/usr/local/share:/usr/share" : list);
  for (std::string folder; std::getline(parts, folder, ':');)
    if (!folder.empty())
      folders.emplace_back(folder);
  return folders;
}

std::string text_of(gPathstring const & path) {
  std::string text;
  gFileSystem::read_file(path, text);
  return text;
}

std::string exec_of(std::string const & entry) {
  for (gPathstring const & folder : data_folders()) {
    std::string const text = text_of(gPathstring(folder).append("applications").append(entry));
    std::string const exec = Shell::desktop_value(text, "Desktop Entry", "Exec");
    if (!exec.empty())
      return exec;
  }
  return "";
}

// The first entry of a list that is installed.
std::string exec_of_list(std::string const & list) {
  std::istringstream entries(list);
  for (std::string entry; std::getline(entries, entry, ';');)
    if (std::string const exec = exec_of(entry); !exec.empty())
      return exec;
  return "";
}

} // namespace

std::string Shell::desktop_value(std::string_view text, std::string_view section,
                                 std::string_view key) {
  std::istringstream lines{std::string(text)};
  bool inside = false;
  for (std::string line; std::getline(lines, line);) {
    line.erase(line.find_last_not_of(" \t\r") + 1);
    if (line.starts_with('['))
      inside = line == "[" + std::string(section) + "]";
    std::size_t const equal = line.find('=');
    if (!inside || equal == line.npos || line.starts_with('#'))
      continue;
    if (gString(line.substr(0, equal)).wsp_rmright() == key)
      return gString(line.substr(equal + 1)).wsp_rmleft();
  }
  return "";
}

std::string Shell::command_of_exec(std::string_view exec) {
  std::string command;
  for (std::size_t i = 0; i < exec.size(); ++i) {
    if (exec[i] != '%' || i + 1 == exec.size()) {
      command += exec[i];
      continue;
    }
    // The others stand for icon, name and what is obsolete.
    char const letter = exec[++i];
    if (letter == '%')
      command += '%';
    else if (letter == 'u' || letter == 'U' || letter == 'f' || letter == 'F')
      command += "%1";
  }
  return command;
}

std::string Shell::desktop_command(std::string_view mime_type) {
  std::vector<gPathstring> lists = {in_home("XDG_CONFIG_HOME", ".config").append("mimeapps.list")};
  for (gPathstring const & folder : data_folders()) {
    lists.push_back(gPathstring(folder).append("applications").append("mimeapps.list"));
    lists.push_back(gPathstring(folder).append("applications").append("defaults.list"));
  }
  for (gPathstring const & list : lists) {
    std::string const text = text_of(list);
    for (char const * section : {"Default Applications", "Added Associations"})
      if (std::string const exec = exec_of_list(desktop_value(text, section, mime_type));
          !exec.empty())
        return command_of_exec(exec);
  }
  for (gPathstring const & folder : data_folders()) {
    std::string const cache =
        text_of(gPathstring(folder).append("applications").append("mimeinfo.cache"));
    if (std::string const exec = exec_of_list(desktop_value(cache, "MIME Cache", mime_type));
        !exec.empty())
      return command_of_exec(exec);
  }
  return "";
}
