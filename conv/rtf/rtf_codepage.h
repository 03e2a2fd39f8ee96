// Text for readers that know one byte a character: Windows-1252.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Rtf {

// The code point at `pos`, which moves behind it. The text is valid UTF-8.
std::uint32_t take_code_point(std::string_view text, std::size_t & pos);
// The byte of a code point; 0 if it has none.
unsigned char windows_1252(std::uint32_t code);
// The whole text; what has no byte becomes "?".
std::string to_windows_1252(std::string_view text);

} // namespace Rtf
