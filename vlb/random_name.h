// Names that nobody can guess, for new files.
#pragma once

#include <string>
#include <string_view>

namespace Vlb {

// 16 hexadecimal digits.
std::string random_name();
// True for a name that is this prefix with a random name behind it.
bool is_random_name(std::string_view name, std::string_view prefix);

// The ending of a file that is written beside its place, until it takes that place: a dot, a random
// name and ".tmp".
std::string work_ending();
// True if a name has that ending, and in front of it `length` bytes.
bool is_work_name(std::string_view name, std::size_t length);

} // namespace Vlb
