// Sources come in any encoding; everything behind the reader is UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace Atc {

// True if the text needs no change: valid UTF-8 with no other control characters than tab and line
// feed, and no code points that no document may hold.
bool is_clean(std::string_view text);

// Appends the text as clean UTF-8. A text that isn't valid UTF-8 is taken as Windows-1252, and the
// answer is false. Line ends become line feeds, white space beyond blank and tab a blank, other
// control characters U+FFFD.
bool append_utf8(std::string_view text, std::string & out);

} // namespace Atc
