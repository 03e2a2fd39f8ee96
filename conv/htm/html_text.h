// Plain text as HTML.
#pragma once

#include <string>
#include <string_view>

namespace Html {

// Appends the text with & < > and " escaped.
void escape(std::string_view text, std::string & out);
std::string escaped(std::string_view text);

} // namespace Html
