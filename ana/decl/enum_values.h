// The values of an enumeration, with their numbers where these are sure.
#pragma once

#include <string>
#include <vector>

#include "ana/decl/declaration.h"

namespace Decl {

struct gEnumValue {
  std::string name;
  std::string written; // behind "=", on one line; empty without one
  std::string number;  // decimal; empty where only a compiler can tell

  bool operator==(gEnumValue const &) const = default;
};

// Of the declaration with this index, which is an enumeration.
std::vector<gEnumValue> enum_values(std::string_view text, gFileDeclarations const & file,
                                    std::size_t enumeration, gSyntax syntax);

} // namespace Decl
