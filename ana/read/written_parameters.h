// Which of several overloads a comment means.
#pragma once

#include <string_view>

// Whether "(int, char * name)", as somebody wrote it, may stand for a signature (see signature.h).
// Scopes, names and defaults don't count, nor does a constant method unless the text says so; a
// parameter of a template's type may be any.
bool fits_parameters(std::string_view signature, std::string_view written, bool pascal);
