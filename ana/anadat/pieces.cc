// Placeholders begin with "@" or "$" and are few, so a piece is told apart by its first character
// and one comparison with a short table.
#include "ana/anadat/pieces.h"

#include <charconv>

namespace {

struct Placeholder {
  std::string_view text;
  gPiece kind;
};

constexpr Placeholder commands[] = {
    {"@_vlbkmk", gPiece::bookmark},  {"@_vlxe", gPiece::index},
    {"@_vltbeg", gPiece::table},     {"@_vltrow", gPiece::table_row},
    {"@_vltend", gPiece::table_end}, {"@_vlhdl", gPiece::headline},
    {"@_vlll", gPiece::link_line},   {"@_vlchier", gPiece::hierarchy},
    {"@_vlsub", gPiece::subentry},   {"@cite", gPiece::citation},
    {"@cref", gPiece::reference},    {"@hidalias", gPiece::alias},
    {"@outattr", gPiece::attribute},
};

constexpr Placeholder variables[] = {
    {"$name", gPiece::variable},     {"$qname", gPiece::variable}, {"$cname", gPiece::variable},
    {"$curclass", gPiece::curclass}, {"$curfile", gPiece::macro},  {"$curpage", gPiece::macro},
    {"$curdate", gPiece::macro},     {"$curtime", gPiece::macro},
};

template <std::size_t n> gPiece look_up(Placeholder const (&table)[n], std::string_view piece) {
  for (Placeholder const & one : table)
    if (one.text == piece)
      return one.kind;
  return gPiece::plain;
}

} // namespace

namespace Vlb {

gPiece piece_kind(std::string_view piece) {
  if (piece.size() < 5 || piece.size() > 9)
    return gPiece::plain;
  if (piece[0] == '@')
    return look_up(commands, piece);
  return piece[0] == '$' ? look_up(variables, piece) : gPiece::plain;
}

bool has_placeholder(gStrList const & list) {
  for (cRef<gString> const & piece : list)
    if (piece_kind(*piece) != gPiece::plain)
      return true;
  return false;
}

bool begins_verbatim(std::string_view piece) {
  return piece == "@b_verbatim\n" || piece == "@endp\n@b_verbatim\n";
}

bool ends_verbatim(std::string_view piece) {
  return piece == "\n@e_verbatim\n" || piece == "\n@e_verbatim\n@endp\n";
}

void put(std::ostream & stream, std::string_view text) {
  auto const size = static_cast<std::streamsize>(text.size());
  if (stream.rdbuf()->sputn(text.data(), size) != size)
    stream.setstate(std::ios::badbit);
}

void put_pieces(std::ostream & stream, gStrList const & list) {
  for (cRef<gString> const & piece : list)
    put(stream, *piece);
}

void put_number(std::ostream & stream, long number) {
  char digits[24];
  char * end = std::to_chars(digits, digits + sizeof digits, number).ptr;
  put(stream, std::string_view(digits, end - digits));
}

void put_escaped(std::ostream & stream, std::string_view text) {
  while (!text.empty()) {
    std::size_t const plain = text.find_first_of(",>}@\\");
    put(stream, text.substr(0, plain));
    if (plain == text.npos)
      return;
    put(stream, "\\");
    put(stream, text.substr(plain, 1));
    text.remove_prefix(plain + 1);
  }
}

} // namespace Vlb
