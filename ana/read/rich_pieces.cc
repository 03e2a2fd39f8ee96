// References and places become placeholders, which are settled when all units are known.
#include "ana/read/rich_pieces.h"

#include <algorithm>
#include <cctype>

#include "ana/anadat/pieces.h"

namespace {

bool is_program_name(std::string_view name) {
  return name.find_first_of("-/") == name.npos;
}

void put_place(gString const & place, gStrList & pieces) {
  pieces.push_back(Vlb::placeholder(gPiece::bookmark));
  pieces.push_back(place);
  pieces.push_back(gString());
}

void add_place(std::string_view name, gStrList & pieces, gTextFacts & facts) {
  gString const place = place_name(name);
  if (std::ranges::find(facts.bookmarks, place) != facts.bookmarks.end())
    return;
  facts.bookmarks.push_back(place);
  put_place(place, pieces);
}

void add_piece(gRichPiece const & piece, gStrList & pieces, gTextFacts & facts) {
  switch (piece.kind) {
  case gRichPiece::code:
    pieces.push_back(gString(piece.text));
    break;
  case gRichPiece::anchor:
    add_place(piece.text, pieces, facts);
    break;
  case gRichPiece::guess:
    pieces.push_back(Vlb::placeholder(gPiece::guess));
    pieces.push_back(gString(piece.text));
    break;
  case gRichPiece::reference:
    pieces.push_back(Vlb::placeholder(gPiece::reference));
    pieces.push_back(gString("<main>"));
    pieces.push_back(is_program_name(piece.text) ? gString(piece.text) : place_name(piece.text));
    break;
  case gRichPiece::copy_all:
  case gRichPiece::copy_brief:
  case gRichPiece::copy_details:
    pieces.push_back(Vlb::placeholder(gPiece::copy));
    pieces.push_back(gString(piece.kind == gRichPiece::copy_all     ? "all"
                             : piece.kind == gRichPiece::copy_brief ? "brief"
                                                                    : "details"));
    pieces.push_back(gString(piece.text));
    break;
  }
}

} // namespace

// What isn't like that is made so, at both ends. Long ones keep what tells them apart.
gString place_name(std::string_view name) {
  constexpr std::size_t longest = 35, kept = 26;
  std::string result;
  for (char c : name.substr(0, longest))
    result += Vlb::is_word(c) ? c : '_';
  if (result.empty() || !Vlb::is_letter(result[0]))
    result.insert(0, "p");
  if (std::max(name.size(), result.size()) > longest) {
    std::uint32_t sum = 0x811C9DC5u;
    for (unsigned char c : name)
      sum = (sum ^ Vlb::upper(static_cast<char>(c))) * 0x01000193u;
    std::string digits;
    for (int i = 0; i < 8; ++i, sum >>= 4)
      digits += "0123456789ABCDEF"[sum & 15];
    result = result.substr(0, kept) + "_" + digits;
  }
  return Vlb::to_upper(result);
}

gStrList text_pieces(gRichPieces && text, gTextFacts & facts) {
  gStrList pieces;
  for (gRichPiece const & one : text)
    add_piece(one, pieces, facts);
  return pieces;
}

gStrList topic_pieces(gTranslated && text, gTextFacts & facts) {
  gStrList pieces;
  // Several comments of a source may be about one topic; the first that is shown gets its place.
  for (std::string const & id : {text.id, text.title_id}) {
    if (id.empty())
      continue;
    gString const place = place_name(id);
    put_place(place, pieces);
    if (std::ranges::find(facts.bookmarks, place) == facts.bookmarks.end())
      facts.bookmarks.push_back(place);
  }
  for (gCommentPart & part : text.parts) {
    std::string title = part.entry.substr(1);
    title[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(title[0])));
    if (part.entry != "@description")
      pieces.push_back(gString("@subentry<2> @subtitle{" + title + "}\n"));
    pieces.push_back(gString("@text\n"));
    pieces.append(text_pieces(std::move(part.text), facts));
  }
  return pieces;
}
