// Names for files and anchors: short, readable, and the same in every run.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Slug {

// The name as a part of an address. Letters, digits, "_", "." and "~" stay, "::" becomes ".",
// operators are spelled, other characters become "-", those outside ASCII "u" and their code point.
// Long ones are cut and get a hash. Never empty.
std::string of(std::string_view name);
// A slug for a file: one that is reserved, on some system or for a generated page, gets a "_".
std::string of_file(std::string_view name);
// Six hexadecimal digits; `parts` are told apart from each other.
std::string hash(std::initializer_list<std::string_view> parts);

// Takes the code point at `pos` and moves on behind it; what is no UTF-8 is taken as single bytes.
char32_t next_code_point(std::string_view text, std::size_t & pos);

} // namespace Slug
