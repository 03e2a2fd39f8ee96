// References and places become placeholders, which are settled when all units are known.
#include "ana/read/rich_pieces.h"

#include <algorithm>
#include <cctype>

#include "ana/anadat/pieces.h"

namespace {

// Places have names of letters, digits and "_"; one that isn't like that is made so, at both ends.
gString place_name(std::string_view name) {
  constexpr std::size_t longest = 35;
  std::string result;
  for (char c : name.substr(0, longest))
    result += Vlb::is_word(c) ? c : '_';
  if (result.empty() || !Vlb::is_letter(result[0]))
    result.insert(0, "p");
  return Vlb::to_upper(result.substr(0, longest));
}

bool is_program_name(std::string_view name) {
  return name.find_first_of("-/") == name.npos;
}

void add_place(std::string_view name, gStrList & pieces, gTextFacts & facts) {
  gString const place = place_name(name);
  if (std::ranges::find(facts.bookmarks, place) != facts.bookmarks.end())
    return;
  facts.bookmarks.push_back(place);
  pieces.push_back(Vlb::placeholder(gPiece::bookmark));
  pieces.push_back(place);
  pieces.push_back(gString());
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
  default: // the text of another element
    pieces.push_back(gString("See "));
    pieces.push_back(Vlb::placeholder(gPiece::reference));
    pieces.push_back(gString("<main>"));
    pieces.push_back(gString(piece.text));
    pieces.push_back(gString("{@tt{" + piece.text + "} } ."));
    break;
  }
}

} // namespace

gStrList text_pieces(gRichPieces && text, gTextFacts & facts) {
  gStrList pieces;
  for (gRichPiece const & one : text)
    add_piece(one, pieces, facts);
  return pieces;
}

gStrList topic_pieces(gTranslated && text, gTextFacts & facts) {
  gStrList pieces;
  if (!text.id.empty())
    add_place(text.id, pieces, facts);
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
