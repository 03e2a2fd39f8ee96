// Plain text as RTF.
#pragma once

#include <string>
#include <string_view>

namespace Rtf {

// Appends UTF-8 text with the special characters of RTF escaped; line feeds become blanks.
void escape(std::string_view text, std::string & out);
// The same for text whose lines and blanks stay as they are.
void escape_lines(std::string_view text, std::string & out);
// A name that every reader takes for a bookmark: a letter, then letters, digits and "_", at most 40
// in all. Names that differ in more than case stay apart.
std::string bookmark(std::string_view name);
// A stretch such as "3cm" or "12pt" in twips (twentieths of a point); -1 if it is none.
int twips(std::string_view width);

} // namespace Rtf
