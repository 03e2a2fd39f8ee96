// The pieces of a text that are settled before or while it is written, and the writing of pieces.
#pragma once

#include <ostream>

#include "vlb/gstrlist.h"

// What a piece of a text is. The parsers know it when they make the piece; it stays with the piece,
// as the mark of its string, so that text that merely looks alike is never taken for a placeholder.
enum class gPiece : unsigned char {
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
  guess,     // "@_vlguess", a name, "{" text "} ": a reference if the name is surely one
  alias,     // "@hidalias", a name
  attribute, // "@outattr", an attribute
  headline,  // "@_vlhdl"
  link_line, // "@_vlll"
  hierarchy, // "@_vlchier"
  subentry,  // "@_vlsub", a subentry word
  copy,      // "@_vlcopy", how much, a name: the text of another unit
};

namespace Vlb {

inline gPiece piece_kind(gString const & piece) {
  return static_cast<gPiece>(piece.mark());
}
gString marked(gPiece kind, gString text);
// The head of a placeholder, such as "@_vlxe" for an index entry; not for variables.
cRef<gString> placeholder(gPiece kind);
// The kind of a variable by its name, such as "$name"; plain for any other text.
gPiece variable_kind(std::string_view name);
// A variable where a scanner has met one; a text that is none becomes plain.
gString variable_piece(gString name);
// True if a piece must be settled.
bool has_placeholder(gStrList const & list);
bool has_piece(gStrList const & list, gPiece kind);

// The settled form of "@_vlxe", with a label of its own made from `stem`.
gString index_mark(std::string_view stem);
// The settled form of a macro: "$curfile" gives "@macro<cur_file>{} ".
gString macro_text(std::string_view variable);
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
