// The rules of the Pascal scanner. What the parser skips is read by the same tokens, since a word
// of a literal or a number isn't one of the code; but only the words and characters that a skip
// stops or counts at are told apart there, and nothing is looked up.
#include "ana/parser/pascal/pas_scan.h"

namespace {

using namespace Pas;
using S = pas_scan;

constexpr unsigned code = in({S::CODE});
constexpr unsigned skip = in({S::SKIP});
constexpr unsigned reading = code | skip;

gScanDefinition const definitions[] = {
    {"word", "[A-Za-z][A-Za-z0-9_]*"},
    {"digits", "[0-9]+"},
    {"real", R"re({digits}(\.{digits})?([eE][-+]?{digits})?)re"},
    {"hex", R"re(\$[0-9A-Fa-f]+)re"},
    {"str", R"re((#{digits}|'([^'\n]|'')*')+)re"},
};

template <int token> int text_token(S & s) {
  return s.token_with_text(token);
}
template <int token> int plain_token(S &) {
  return token;
}

gScanRule<S> const rules[] = {
    {reading, R"re(\.\.)re", plain_token<DOTS>},
    {code, "[-+]?({digits}|{hex})", text_token<NUMBER>},
    {code, "[-+]?{real}", text_token<REAL>},
    {code, "{word}", [](S & s) { return s.word(); }},
    {code, "{str}", text_token<STRING>},

    {skip, "[aA][bB][sS][oO][lL][uU][tT][eE]", plain_token<KW_ABSOLUTE>},
    {skip, "[bB][eE][gG][iI][nN]", plain_token<KW_BEGIN>},
    {skip, "[cC][aA][sS][eE]", plain_token<KW_CASE>},
    {skip, "[eE][nN][dD]", plain_token<KW_END>},
    {skip, "[tT][rR][yY]", plain_token<KW_TRY>},
    {skip, "{word}|{real}|{hex}|{str}", plain_token<PIECE>},
    {skip, R"re(\R[^A-Za-z0-9$#'@.;=()\[\]]+)re", plain_token<PIECE>},

    {reading, R"("@_vlbcom")", [](S & s) { return s.begin_comment(); }},
    {in({S::COMMENT}), R"("@_vlecom")", [](S & s) { return s.end_comment(); }},
    {in({S::COMMENT}), R"re(\R[^@]+|@)re", plain_token<scan_go_on>},

    {code, R"re(\R[ \t\n]+)re", plain_token<scan_go_on>},
    {reading, R"re(.)re", [](S & s) { return s.character(); }},
};

gScanTable<S> const & table() {
  static gScanTable<S> const built(rules, definitions);
  return built;
}

} // namespace

int pas_scan::scan() {
  return run(*this, table());
}
