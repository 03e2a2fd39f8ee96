// Declarations as text, for comparisons.
#pragma once

#include "ana/decl/readers.h"

namespace Decl {

// All of a file, separated by " | ": kind, name with its scopes, parameters, marks, such as
// "method A::f(int:a, T) const {}". "{}" is a definition with a body, ";" announces.
std::string shown(std::string_view text, gFileDeclarations const & file);
// The same of one.
std::string shown(std::string_view text, gFileDeclarations const & file, gDeclaration const & one);

} // namespace Decl
