// What somebody who mistyped a name may have meant.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Vlb {

// The name that differs least from the word, counting missing, additional, changed and swapped
// characters; empty if none is near. The first of equals.
std::string nearest(std::string_view word, std::vector<std::string> const & names);

} // namespace Vlb
