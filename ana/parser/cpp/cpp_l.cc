// The rules of the C/C++ scanner. Where the project has no macros, identifiers are asked for in
// the keyword table alone, and what the parser skips comes in pieces between the brackets that
// count: a piece may hold anything but those, so it reads literals whole and stops at comments.
#include "ana/parser/cpp/cpp_scan.h"

namespace {

using S = cpp_scan;

constexpr unsigned reading = in({S::CODE, S::PLAIN_CODE});
constexpr unsigned macros = in({S::CODE});
constexpr unsigned plain = in({S::PLAIN_CODE});
constexpr unsigned angles = in({S::SKIP_ANGLES});
constexpr unsigned skipping =
    in({S::SKIP_BRACES, S::SKIP_PARENS, S::SKIP_BRACKETS, S::SKIP_ANGLES, S::SKIP_VALUE});

gScanDefinition const definitions[] = {
    {"ident", "[A-Za-z_][A-Za-z0-9_]*"},
    {"ws", R"re([ \t\n])re"},
    {"usuf", "[uU][lL]?|[lL][uU]?"},
    {"esc", R"re(\\(['"?\\abfnrtv]|[0-7]{1,3}|x[0-9A-Fa-f]+))re"},
    {"chr", R"re('([^'\\\n]|{esc})*')re"},
    {"str", R"re(\"([^"\\\n]|{esc})*\")re"},
    {"exp", "[eE][-+]?[0-9]+"},
};

template <int token> int operator_token(S & s) {
  return s.token_with_text(token);
}
int piece(S & s) {
  return s.piece();
}

gScanRule<S> const rules[] = {
    {reading, R"("==")", operator_token<EQUAL>},
    {reading, R"("!=")", operator_token<NOT_EQUAL>},
    {reading | angles, R"("<=")", operator_token<LESS_EQUAL>},
    {reading | angles, R"(">=")", operator_token<GREATER_EQUAL>},
    {reading | angles, R"("<<")", operator_token<SHIFT_LEFT>},
    {reading | angles, R"(">>")", operator_token<SHIFT_RIGHT>},
    {reading, R"("&&")", operator_token<AND_AND>},
    {reading, R"("||")", operator_token<OR_OR>},
    {reading, R"("++")", operator_token<PLUS_PLUS>},
    {reading | angles, R"("--")", operator_token<MINUS_MINUS>},
    {reading, R"("+=")", operator_token<PLUS_ASSIGN>},
    {reading | angles, R"("-=")", operator_token<MINUS_ASSIGN>},
    {reading, R"("*=")", operator_token<TIMES_ASSIGN>},
    {reading, R"("/=")", operator_token<DIV_ASSIGN>},
    {reading, R"("%=")", operator_token<MOD_ASSIGN>},
    {reading, R"("^=")", operator_token<XOR_ASSIGN>},
    {reading, R"("&=")", operator_token<AND_ASSIGN>},
    {reading, R"("|=")", operator_token<OR_ASSIGN>},
    {reading | angles, R"("<<=")", operator_token<SHIFT_LEFT_ASSIGN>},
    {reading | angles, R"(">>=")", operator_token<SHIFT_RIGHT_ASSIGN>},
    {reading, R"(".*")", operator_token<DOT_STAR>},
    {reading | angles, R"("->*")", operator_token<ARROW_STAR>},
    {reading | angles, R"("->")", operator_token<ARROW>},
    {reading, R"("...")", operator_token<ELLIPSIS>},
    {reading, "::", [](S &) { return int(SCOPE); }},

    // Identifiers are runs for the sake of the white space behind them: a thousand empty lines are
    // no reason to give up.
    {macros, R"re(\R{ident}/{ws}*\()re", [](S & s) { return s.macro_call(); }},
    {macros, R"re(\R{ident}/{ws}*::)re", [](S & s) { return s.macro_name(SCOPE_NAME); }},
    {macros, R"re(\R{ident})re", [](S & s) { return s.macro_name(IDENTIFIER); }},
    {plain, R"re({ident}/::)re", [](S & s) { return s.scope_name(); }},
    {plain, R"re({ident}/{ws}+::)re", [](S & s) { return s.scope_name(); }},
    {plain, R"re(\R{ident})re", [](S & s) { return s.identifier(); }},
    {reading, "0[0-7]*({usuf})?|[1-9][0-9]*({usuf})?|0[xX][0-9A-Fa-f]+({usuf})?",
     operator_token<INTEGER>},
    {reading, R"re([0-9]*\.[0-9]+({exp})?[fFlL]?|[0-9]+\.[0-9]*({exp})?[fFlL]?)re",
     operator_token<FLOAT_NUMBER>},
    {reading, "L?{chr}", operator_token<CHAR_LITERAL>},
    {reading, "L?{str}", operator_token<STRING>},
    {reading, R"re(\(/{ws}*[&*])re", [](S & s) { return s.pointer_paren(); }},
    {reading, R"re(\R\()re", [](S &) -> int { return '('; }},

    {reading | skipping, R"("@_vlbcom")", [](S & s) { return s.begin_comment(); }},
    {in({S::COMMENT}), R"("@_vlecom")", [](S & s) { return s.end_comment(); }},
    {in({S::COMMENT}), R"re(\R[^@]+|@)re", [](S &) { return scan_go_on; }},

    {in({S::SKIP_BRACES}), R"re(\R([^{}'"@]|{chr}|{str})+)re", piece},
    {in({S::SKIP_PARENS}), R"re(\R([^()'"@]|{chr}|{str})+)re", piece},
    {in({S::SKIP_BRACKETS}), R"re(\R([^\[\]'"@]|{chr}|{str})+)re", piece},
    {angles, R"re(\R([^<>\-'"@]|{chr}|{str})+)re", piece},
    {in({S::SKIP_VALUE}), R"re(\R([^()\[\]{},;'"@]|{chr}|{str})+)re", piece},

    {reading, R"re(\R{ws}+|\\\n)re", [](S & s) { return s.white_space(); }},
    {reading, R"re(.)re", [](S & s) { return s.character(); }},
    {skipping, R"re(.)re", [](S & s) { return s.character(); }},

    {in({S::MACROARGS}), R"re(\([^)]*\))re", [](S & s) { return s.macro_arguments(); }},
};

gScanTable<S> const & table() {
  static gScanTable<S> const built(rules, definitions);
  return built;
}

} // namespace

int cpp_scan::scan() {
  return run(*this, table());
}
