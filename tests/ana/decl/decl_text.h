// Declarations as text, for comparisons.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ana/decl/readers.h"

namespace Decl {

// All of a file, separated by " | ": kind, name with its scopes, parameters, marks, such as
// "method A::f(int:a, T) const {}". "{}" is a definition with a body, ";" announces.
std::string shown(std::string_view text, gFileDeclarations const & file);
// The same of one.
std::string shown(std::string_view text, gFileDeclarations const & file, gDeclaration const & one,
                  gSyntax syntax = gSyntax::cpp);

// Runs each line "source => answer" of CASE_DIR/name through `answer`, with "\n" in the source for
// a line end; VELLUMAR_UPDATE=1 rewrites what is behind "=>".
void check_lines(std::string const & name,
                 std::function<std::string(std::string const & source)> const & answer);
// The sources of such a file.
std::vector<std::string> case_sources(std::string const & name);

} // namespace Decl
