// The bytes of a source as text, whatever the editor that wrote them.
#pragma once

#include <string>

#include "vlb/gpathstring.h"

namespace Vlb {

// True for UTF-16, by its mark or, without one, by the zero in each second byte that nothing but
// UTF-16 has.
bool is_utf16(std::string_view bytes);
// The text in UTF-8, without the mark. Halves of pairs and a last odd byte become U+FFFD.
std::string utf8_of_utf16(std::string_view bytes);

// Makes line feeds of CRLF and of lone carriage returns, in place; the new size.
std::size_t unify_line_ends(char * text, std::size_t size);

// All of it: UTF-16 becomes UTF-8, a mark at the start goes, all line ends are line feeds. Other
// encodings than UTF-16 stay as they are. Takes any bytes, in linear time.
void make_source_text(std::string & bytes);
// The same for a file; false if it can't be read.
bool read_source(gPathstring const & path, std::string & text);

} // namespace Vlb
