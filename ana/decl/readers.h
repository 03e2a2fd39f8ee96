// The readers of declarations. Total: any bytes give a result, in time and memory linear in their
// number. They know neither options nor files; one call depends on its arguments alone.
#pragma once

#include "ana/decl/cpp_macros.h"
#include "ana/decl/declaration.h"

namespace Decl {

// C, C++ and their kin. `text` is UTF-8 or any superset of ASCII, at most 4 GB - 1.
gFileDeclarations read_cpp(std::string_view text, gMacroTable const & macros);

// Pascal, Delphi and Free Pascal: units, programs, libraries, packages, and include files by
// themselves, from the context that they are included in.
gFileDeclarations read_pascal(std::string_view text, gPascalContext const & context = {});

// The text begins with "unit", "program", "library" or "package": other files are made to be taken
// in by one of those.
bool has_pascal_head(std::string_view text);

} // namespace Decl
