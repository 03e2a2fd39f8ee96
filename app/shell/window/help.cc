// A map file that is missing or damaged costs the pages, never more: without one the contents page
// is asked for.

#include "app/shell/window/help.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

#include "app/shell/file_url.h"
#include "vlb/gfilesystem.h"
#include "vlb/outside.h"

namespace {

bool is_letter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// One letter in front of ":" is the drive of an old path.
bool has_scheme(std::string const & page) {
  std::size_t const colon = page.find(':');
  if (colon == page.npos || colon < 2)
    return false;
  for (std::size_t i = 0; i < colon; ++i)
    if (!is_letter(page[i]))
      return false;
  return true;
}

constexpr std::string_view white_space = " \t\r\v\f";

} // namespace

gHelpMap::gHelpMap(gPathstring const & map_file)
    : file_(map_file),
      base_(Shell::file_url(gPathstring(map_file.dir_name()).append(""))) {
  if (!base_.ends_with('/'))
    base_ += '/';
}

void gHelpMap::read_line(std::string_view line, int line_number) {
  std::string const text(line);
  char * end = nullptr;
  int const number = static_cast<int>(std::strtol(text.c_str(), &end, 0));
  if (end == text.c_str())
    return;
  std::string page = end;
  page.erase(0, page.find_first_not_of(white_space));
  page.erase(std::min(page.find_first_of(white_space), page.size()));
  for (char & c : page)
    if (c == '\\')
      c = '/';
  if (!has_scheme(page))
    page = base_ + page;
  if (!entries_.try_emplace(number, page).second)
    std::cerr << line_number << ": ERROR: " << text << std::endl;
}

bool gHelpMap::load() {
  std::string text;
  if (!gFileSystem::read_file(file_, text)) {
    std::cerr << "Cannot open HTM-mapfile: " << file_ << std::endl;
    return false;
  }
  std::string_view rest = text;
  for (int number = 1; !rest.empty(); ++number) {
    std::size_t const end = std::min(rest.find('\n'), rest.size());
    read_line(rest.substr(0, end), number);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return loaded_ = true;
}

std::string gHelpMap::find(int number) {
  if (!loaded_ && !load())
    return "";
  auto const found = entries_.find(number);
  return found == entries_.end() ? "" : found->second;
}

std::string gHelpMap::contents_page() const {
  return base_ + "index.htm";
}

std::string gHelpMap::index_page() const {
  gPathstring const name = file_.base_name() + "_idx.htm";
  gPathstring const page = gPathstring(file_.dir_name()).append(name);
  return gFileSystem::file_exists(page) ? base_ + name : contents_page();
}

bool gHelpBrowser::open(std::string const & url) {
  return desktop_.start(Shell::filled_command(desktop_.shell_command("open", ".htm"), url));
}

void gHelp::request(Command command, int context) {
  std::string page;
  if (command == Command::context)
    page = map_.find(context);
  else if (command == Command::index)
    page = map_.index_page();
  if (page.empty())
    page = map_.contents_page();
  if (!browser_.open(page))
    Vlb::outside().box("The help cannot be shown, since no browser could be started.\n"
                       "Its pages begin with\n" +
                           page,
                       gOutside::Icon::exclamation);
}
