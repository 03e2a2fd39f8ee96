// Plain text as HTML.
#pragma once

#include <string>
#include <string_view>

namespace Html {

// Appends the text with & < > and " escaped.
void escape(std::string_view text, std::string & out);
std::string escaped(std::string_view text);
// A long name, escaped, that lines may break where its words end.
std::string breakable(std::string_view name);

} // namespace Html
