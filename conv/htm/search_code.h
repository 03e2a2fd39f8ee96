// How the search's data are written, as program text for a browser.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace SearchCode {

// Appends the digits of a number.
void add_number(std::uint32_t number, std::string & out, int base = 36);
// Appends the text as a string.
void add_quoted(std::string_view text, std::string & out);
// Appends the text as one line of a list in backquotes, without a line feed: what would end the
// line or the list is escaped or a blank.
void add_line(std::string_view text, std::string & out);
// The text without what is behind so many bytes, cut in front of a character.
std::string_view cut(std::string_view text, std::size_t bytes);

} // namespace SearchCode
