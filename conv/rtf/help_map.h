// Numbers of help identifiers, by which a program asks for a topic.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Help {

using gNumbers = std::map<std::string, std::uint32_t>; // by names in upper case

// The entries of a map file: on each line a name and a number, maybe behind "#define". What is none
// is passed over; of two with the same name the first counts.
gNumbers read_map(std::string_view text);
// False for a text that is something else for the most part, such as a source, which no map may
// take the place of.
bool is_map(std::string_view text);

// A number for each name. One that it alone had in `before` stays; new ones come behind all of
// those, from `base` on. Names that other files give a number, and those numbers, are left to them.
gNumbers number(std::vector<std::string> const & names, gNumbers const & before,
                gNumbers const & others, std::uint32_t base);

} // namespace Help
