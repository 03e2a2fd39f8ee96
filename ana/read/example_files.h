// Files that comments show: programs, parts of them, texts. They lie in folders that the project
// names, and nothing else is ever read.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "vlb/gpathstring.h"

class gExampleFiles {
public:
  // `places`: folders, and single files; absolute.
  explicit gExampleFiles(std::vector<gPathstring> places = {}) : places_(std::move(places)) {}

  bool empty() const { return places_.empty(); }
  // The text of the first that has the name, UTF-8 with line feeds; nothing if there is none, it
  // can't be read, is longer than a comment could sensibly show, or a link or ".." leads out of the
  // places.
  std::optional<std::string> read(std::string_view name) const;
  // Where that file lies; empty under the same conditions.
  gPathstring find(std::string_view name) const;

private:
  std::vector<gPathstring> places_;
};
