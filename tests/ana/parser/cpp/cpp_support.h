// What the tests of C/C++ sources share: options, sources in memory, results as lines of text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Options as far as they matter here: the defaults of a new project, changed by the leading lines
// of `input` that begin with "%", which are taken off:
//   %2star  %3slash  %frame CHARS  %line CHARS  %macro NAME PARAMETERIZED ACTION CODE
std::string take_options(std::string const & input);

// The marked copy of a source, or the text of the fault that ended it.
std::string preprocess(std::string_view source);

// The tokens of a marked copy: number or character, and the value in brackets.
std::string tokens(std::string_view text);

// What the parser leaves of a marked copy: elements by line, comments, classes with bases,
// reports, and how it ended if it failed.
std::string parse(std::string_view text);

// The parts of a text between its "~".
std::vector<std::string> parts_of(std::string const & text);
