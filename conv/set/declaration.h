// Declarations as readers like to see them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "conv/atc/facts_line.h"

namespace Declaration {

// A declaration that is one line of more than 80 characters gets its parameters on lines of their
// own. Others stay as they are. `facts` tells where the parts are, if they are of this text.
std::string broken(std::string_view text, gKnownFacts const & facts = {});

// Leaves of a very long one, such as a table of numbers, what shows what it is: up to the end of a
// line or of a word.
void cut(std::string & text);

// The names of template parameters, which mean nothing outside of the declaration.
std::vector<std::string_view> bound_names(std::string_view text, gKnownFacts const & facts = {});

} // namespace Declaration
