// A declaration's text for one of the several names that its statement declares.
#pragma once

#include <span>

#include "ana/decl/declaration.h"
#include "vlb/gstring.h"

// Leaves "int * b" of "int a, * b = 0, c;", and "B: Word" of "A, B: Word". `line` is without
// comments, `first` and `own` are the places in it of the first name and of this one, `parts`
// further places, which move along; those of other declarators become empty. Nothing changes where
// it isn't sure which text belongs to which name.
void cut_to_declarator(gString & line, Decl::gRange first, Decl::gRange own, Decl::gSyntax syntax,
                       std::span<Decl::gRange * const> parts);
