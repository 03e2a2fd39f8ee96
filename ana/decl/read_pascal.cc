// Pascal: first the tokens with their partners, then the declarations, then the places.
#include "ana/decl/pas_reader.h"
#include "ana/decl/readers.h"

namespace Decl {

gFileDeclarations read_pascal(std::string_view text, gPascalContext const & context) {
  gFileDeclarations out;
  gPasSource const source = prepare_pascal(text, context, out);
  gPasReader reader(source, out);
  reader.read(context);
  pas_places(source, reader.states(), reader.faults(), out);
  return out;
}

bool has_pascal_head(std::string_view text) {
  gPasScanner scanner(text);
  for (gPasLexeme lexeme; scanner.next(false, lexeme);)
    if (lexeme.kind == gPasLexeme::token) {
      gPasWord const word = lexeme.token_made.word;
      return word == gPasWord::unit || word == gPasWord::program || word == gPasWord::library ||
             word == gPasWord::package;
    }
  return false;
}

} // namespace Decl
