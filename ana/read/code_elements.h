// The code elements of a file, made of what the tolerant readers found in it.
#pragma once

#include <vector>

#include "ana/anadat/gcodeelem.h"
#include "ana/decl/declaration.h"

// What is derived from declarations for the tables of a run.
struct gReadElements {
  std::vector<cRef<gCodeElem>> elements; // in text order, outer ones first
  std::vector<std::int32_t> of;          // by declaration: index into elements, -1 for none
  // The first declaration of those that make no element since too many scopes are around them; -1
  // for none.
  std::int32_t too_deep = -1;
};

// `file` is the user's file, whose language tells the syntax. A using-declaration and a type
// that is a friend make no element, and no more does what has no name, but where something else
// names it: the structure of "struct {...} pos" is "pos" as well, a list of constants is the first
// of them.
gReadElements make_code_elements(std::string_view text, Decl::gFileDeclarations const & found,
                                 gSrcFile const & file);
