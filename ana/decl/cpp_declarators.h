// One declarator: the name, its parameters, what stands behind.
#pragma once

#include "ana/decl/cpp_names.h"

namespace Decl {

struct gDeclaratorPlace {
  std::string_view class_name = {}; // of the class around, for its constructors
  bool in_class = false;
  bool with_body = false;  // braces of a function follow
  bool type_known = false; // the type stands in front already: a further declarator, a class's tail
  bool parameter = false;  // a parameter may lack its name, and has a type first
  int depth = 0;           // of parentheses around the name
};

struct gDeclarator {
  gChain name; // empty: there is none
  bool function = false;
  bool constructor = false;
  bool pointer = false;                          // the name stands in parentheses of its own
  bool call = false;                             // rather the call of a macro
  std::uint32_t first = 0, last = 0;             // tokens; the last is a "," or the end
  std::uint32_t type_last = 0;                   // the type in front of the name is [first, this)
  std::uint32_t parameters = no_token;           // their "("
  std::uint32_t trailing = 0;                    // behind the parameter list
  std::uint32_t value_first = 0, value_last = 0; // initialiser without "="
  bool bits = false;                             // it is the width of a bit field
};

gDeclarator read_declarator(gSource const & source, std::uint32_t first, std::uint32_t last,
                            gDeclaratorPlace const & place);

} // namespace Decl
