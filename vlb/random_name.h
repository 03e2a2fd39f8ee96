// Names that nobody can guess, for new files.
#pragma once

#include <string>

namespace Vlb {

// 16 hexadecimal digits.
std::string random_name();

} // namespace Vlb
