// The project that a help compiler starts from.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace Help {

// Fills in the template of a project: $name or ${name} stands for a value, $$ for a dollar sign. A
// line with nothing but an empty value goes; a value of several lines may stand alone on a line.
// A name without a value is reported once, with its place in the template, and shows nothing.
// The result has the line ends that help compilers expect.
std::string fill_project(std::string_view text, std::map<std::string, std::string> const & values,
                         std::string const & path);

} // namespace Help
