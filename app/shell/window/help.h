// The help of the program: from a number to a page, and the page to the browser.
#pragma once

#include <map>
#include <string>

#include "app/shell/window/start_program.h"

// Context numbers and the pages they stand for. A map file has a line for each: the number
// (decimal, or with 0x or 0), blanks, the page.
class gHelpMap {
public:
  explicit gHelpMap(gPathstring const & map_file);

  // The address of a number's page; empty without one. Reads the file first; a file that can't be
  // read goes to the error stream, and the next call tries again.
  std::string find(int number);
  std::string contents_page() const;
  std::string index_page() const; // the contents if there is none

private:
  bool load();
  void read_line(std::string_view line, int line_number);

  gPathstring file_;
  std::string base_; // the folder in front of pages, with its last "/"
  bool loaded_ = false;
  std::map<int, std::string> entries_;
};

// Opens addresses in the user's browser.
class gHelpBrowser {
public:
  explicit gHelpBrowser(gDesktop & desktop) : desktop_(desktop) {}
  // False if no browser can be started.
  bool open(std::string const & url);

private:
  gDesktop & desktop_;
};

class gHelp {
public:
  enum class Command { context = 1, index = 3, contents = 11 };

  gHelp(gPathstring const & map_file, gDesktop & desktop) : map_(map_file), browser_(desktop) {}
  // Shows a page: that of a context number, the index or the contents. A box if it fails.
  void request(Command command, int context = 0);

private:
  gHelpMap map_;
  gHelpBrowser browser_;
};
