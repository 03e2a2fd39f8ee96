// Conditions of comments: "A && (B || !C)".
#pragma once

#include <set>
#include <string>
#include <string_view>

// Whether it holds where just these names are set. Nothing holds for nothing, and what can't be
// read ends where that begins.
bool condition_holds(std::string_view condition, std::set<std::string, std::less<>> const & names);
// How much of a text is a condition: a name, or several with brackets, "&&" and "||".
std::size_t condition_length(std::string_view text);
