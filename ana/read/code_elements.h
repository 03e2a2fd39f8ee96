// The code elements of a file, made of what the tolerant readers found in it.
#pragma once

#include <vector>

#include "ana/anadat/gcodeelem.h"
#include "ana/decl/declaration.h"

// What is derived from declarations for the tables of a run.
struct gReadElements {
  std::vector<cRef<gCodeElem>> elements; // in text order, outer ones first
  std::vector<std::int32_t> of;          // by declaration: index into elements, -1 for none
};

// `file` is the user's file, whose language tells the syntax. A declaration without a name of its
// own, a using-declaration and a friend class make no element.
gReadElements make_code_elements(std::string_view text, Decl::gFileDeclarations const & found,
                                 gSrcFile const & file);
