// Addresses of files.
#pragma once

#include <string>

namespace Shell {

// The "file://" address of an absolute path, with "%" and two digits for what can't stand there.
std::string file_url(std::string const & path);

} // namespace Shell
