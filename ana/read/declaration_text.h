// What the pages show of a declaration.
#pragma once

#include "ana/anadat/gcodeelem.h"
#include "ana/decl/declaration.h"

// A declaration as written, on one line, without the body of a function or class. The values of an
// enumeration are shown, and so are the fields of a structure without a name, if they are few; else
// "{...}" stands for them. Sets the ranges of `parts`.
gString declaration_text(std::string_view text, Decl::gFileDeclarations const & found,
                         Decl::gDeclaration const & one, Decl::gSyntax syntax, gDeclParts & parts);
