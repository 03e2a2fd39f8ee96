// Declarations as readers like to see them.
#pragma once

#include <string>
#include <string_view>

namespace Declaration {

// A declaration that is one line of more than 80 characters gets its parameters on lines of their
// own. Others stay as they are.
std::string broken(std::string_view text);

} // namespace Declaration
