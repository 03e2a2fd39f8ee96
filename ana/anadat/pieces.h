// The pieces of a text that are settled before or while it is written, and the writing of pieces.
#pragma once

#include <ostream>

#include "vlb/gstrlist.h"

enum class gPiece {
  plain,     // final
  bookmark,  // "@_vlbkmk", a name, "hid" or empty
  index,     // "@_vlxe", then the fields of the entry
  curclass,  // "$curclass"
  table,     // "@_vltbeg", "no"
  table_row, // "@_vltrow"
  table_end, // "@_vltend"
  citation,  // "@cite", a name
  variable,  // "$name", "$qname", "$cname"
  macro,     // "$curfile", "$curpage", "$curdate", "$curtime"
  reference, // "@cref", the window type, the target, "{", text, "} "
  alias,     // "@hidalias", a name
  attribute, // "@outattr", an attribute
  headline,  // "@_vlhdl"
  link_line, // "@_vlll"
  hierarchy, // "@_vlchier"
  subentry,  // "@_vlsub", a subentry word
};

namespace Vlb {

gPiece piece_kind(std::string_view piece);
// True if a piece must be settled.
bool has_placeholder(gStrList const & list);

// The settled form of "@_vlxe", with a label of its own made from `stem`.
gString index_mark(std::string_view stem);
// The text that the project shows for the value of an attribute; the settled form of "@outattr".
gString attribute_text(gString const & attribute, gString const & value);

// The first and last piece of a verbatim block or a citation.
bool begins_verbatim(std::string_view piece);
bool ends_verbatim(std::string_view piece);

// Writing goes straight to the stream's buffer: a unit is written in some thirty small pieces. A
// failure is left in the stream's state.
void put(std::ostream & stream, std::string_view text);
void put_pieces(std::ostream & stream, gStrList const & list);
void put_number(std::ostream & stream, long number);
// Writes a text as escape_atc gives it.
void put_escaped(std::ostream & stream, std::string_view text);

} // namespace Vlb
