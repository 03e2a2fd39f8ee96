// The texts of placeholders show up in tests and nowhere else: what counts is the mark.
#include "ana/anadat/pieces.h"

#include <charconv>

#include "vlb/gexception.h"

namespace {

bool special_in_atc(char c) {
  return c == ',' || c == '>' || c == '}' || c == '@' || c == '\\';
}

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
    {"@outattr", gPiece::attribute}, {"@_vlguess", gPiece::guess},
    {"@_vlcopy", gPiece::copy},
};

constexpr Placeholder variables[] = {
    {"$name", gPiece::variable},     {"$qname", gPiece::variable}, {"$cname", gPiece::variable},
    {"$curclass", gPiece::curclass}, {"$curfile", gPiece::macro},  {"$curpage", gPiece::macro},
    {"$curdate", gPiece::macro},     {"$curtime", gPiece::macro},
};

} // namespace

namespace Vlb {

gString marked(gPiece kind, gString text) {
  text.set_mark(static_cast<unsigned char>(kind));
  return text;
}

cRef<gString> placeholder(gPiece kind) {
  for (Placeholder const & one : commands)
    if (one.kind == kind)
      return make_ref<gString>(marked(kind, gString(one.text)));
  VLB_ASSERT(!"a placeholder");
  return {};
}

gPiece variable_kind(std::string_view name) {
  for (Placeholder const & one : variables)
    if (one.text == name)
      return one.kind;
  return gPiece::plain;
}

gString variable_piece(gString name) {
  gPiece const kind = variable_kind(name);
  return marked(kind, std::move(name));
}

bool has_placeholder(gStrList const & list) {
  for (cRef<gString> const & piece : list)
    if (piece_kind(*piece) != gPiece::plain)
      return true;
  return false;
}

bool has_piece(gStrList const & list, gPiece kind) {
  for (cRef<gString> const & piece : list)
    if (piece_kind(*piece) == kind)
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
  std::size_t from = 0; // what isn't written yet
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (!special_in_atc(text[at]))
      continue;
    put(stream, text.substr(from, at - from));
    put(stream, "\\");
    from = at;
  }
  put(stream, text.substr(from));
}

} // namespace Vlb
