// The bases that a class names in its declaration.
#pragma once

#include <string_view>
#include <vector>

struct gBaseName {
  std::string_view name;   // without template arguments and a leading "::"
  std::string_view access; // as it is written; may be empty
};

// Of "public A, virtual ns::B<int>" or "(TObject, IFoo)".
std::vector<gBaseName> split_bases(std::string_view text);
