// The rows of all options, and names of options that are checked when the program is compiled.
#pragma once

#include "app/options/option_table.h"
#include "store/cmapobj.h"

namespace Vapp {

constexpr std::span<gOptionRow const> option_rows() {
  return option_table;
}

// Null if there is no such option.
constexpr gOptionRow const * find_row(std::string_view path) {
  for (gOptionRow const & row : option_table)
    if (row.path == path)
      return &row;
  return nullptr;
}

// The path of an option of one of the types; a path that isn't one doesn't compile.
template <gOptionType... types> class gOptionName {
public:
  consteval gOptionName(char const * path) : row_(find_row(path)) {
    if (!row_ || !((row_->type == types) || ...))
      throw "no option of this type";
  }
  // For a path that isn't known before. Null where the row has another type or there is none.
  static gOptionRow const * find(std::string_view path) {
    gOptionRow const * row = find_row(path);
    return row && ((row->type == types) || ...) ? row : nullptr;
  }
  gOptionRow const & row() const { return *row_; }

private:
  gOptionRow const * row_;
};

using gFlagName = gOptionName<gOptionType::flag>;
using gNumberName = gOptionName<gOptionType::number>;
using gNumbersName = gOptionName<gOptionType::numbers>;
using gTextName = gOptionName<gOptionType::text, gOptionType::shipped>;

// The default as a value of the tree.
cRef<cObj> default_of(gOptionRow const & row);
// The entry in a tree of the row's kind; null if there is none.
cRef<cObj> entry_of(cObj const & tree, gOptionRow const & row);
// The map that holds the row's entry, made where it is missing.
cMapObj & holder_of(cMapObj & tree, gOptionRow const & row);
// The last key of the row's path.
std::string_view key_of(gOptionRow const & row);

// Values of a tree; the row's default where the entry is missing or of another type.
bool flag_in(cObj const & tree, gOptionRow const & row);
int number_in(cObj const & tree, gOptionRow const & row);
gString text_in(cObj const & tree, gOptionRow const & row);
std::vector<int> numbers_in(cObj const & tree, gOptionRow const & row);

} // namespace Vapp
