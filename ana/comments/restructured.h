// Passages in reStructuredText, between "\rst" and "\endrst".
#pragma once

#include <string>
#include <string_view>

// The comment with what such passages mean in the marks of all others: literal blocks and
// directives as commands, roles as code, references as links. Lines outside stay as they are.
std::string without_restructured(std::string_view comment);
