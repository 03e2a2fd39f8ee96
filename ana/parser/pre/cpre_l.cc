// The rules of the C/C++ comment preprocessor. Long stretches of nothing special are taken as
// runs, which are the same to the output as their single characters: code while no macro is known,
// comment text, dropped directives and branches, white space.
#include "ana/parser/pre/cpre_scan.h"

namespace {

using S = cpre_scan;

constexpr unsigned code = in({S::CODE, S::PLAIN_CODE});
constexpr unsigned comment = in({S::CMT_TEXT, S::CMT_LINEHEAD, S::CMT_FRAMESKIP, S::CMT_FRAMETAIL});
constexpr unsigned tails = in({S::TAIL_ELSE, S::TAIL_ENDIF});

gScanDefinition const definitions[] = {
    {"ident", "[A-Za-z_][A-Za-z_0-9]*"},
    {"esc", R"re(\\(['"?\\abfnrtv]|[0-7]{1,3}|x[0-9A-Fa-f]+))re"},
    {"chr", R"re('([^'\\\n]|{esc})*')re"},
    {"str", R"re(\"([^"\\\n]|{esc})*\")re"},
    // Words of a comment with the blanks in front of them. Blanks with nothing behind them may
    // belong to the end of the line or of the comment, and a star to the end of the comment.
    {"words", R"re(([ \t]*[^ \t\n*])+)re"},
};

gScanRule<S> const rules[] = {
    // Code. A run never goes over a line's head that may be a directive's.
    {code, R"re(^[ \t]*#[ \t]*el(if|se))re", [](S & s) { return s.drop_and_enter(S::TAIL_ELSE); }},
    {code, R"re(\R^[ \t]*#)re", [](S & s) { return s.drop_and_enter(S::DIRECTIVE); }},
    {in({S::PLAIN_CODE}), R"re(\R([^'"/#\n]|{chr}|{str}|\n[ \t\n]*[^'"/#\n \t])+)re",
     [](S & s) { return s.plain_code(); }},
    {code, R"re(\R[ \t\n]*\n)re", [](S & s) { return s.echo(); }},
    {in({S::CODE}), R"re(\R[^'"/#\nA-Za-z_]+)re", [](S & s) { return s.echo(); }},
    {in({S::CODE}), "L?{chr}", [](S & s) { return s.echo(); }},
    {in({S::CODE}), "L?{str}", [](S & s) { return s.echo(); }},
    {in({S::CODE}), R"re({ident}/\()re", [](S & s) { return s.macro_call(); }},
    {in({S::CODE}), "{ident}", [](S & s) { return s.macro_name(); }},
    {code, R"re("/**"/[ \t\n])re", [](S & s) { return s.open_star_comment(); }},
    {code, R"re("/*")re", [](S & s) { return s.open_comment(false, "@_vlbcom "); }},
    {code, R"re("///"/[ \t\n])re", [](S & s) { return s.open_slash_comment(); }},
    {code, R"re("//")re", [](S & s) { return s.open_comment(true, "@_vlbcom "); }},
    {code, R"re(.|\n)re", [](S & s) { return s.echo(); }},

    {in({S::MACROARGS}), R"re(\([^)]*\))re", [](S & s) { return s.macro_arguments(); }},

    // The line of a directive, and what is skipped behind #else and #elif.
    {in({S::DIRECTIVE}), R"re(\\\n)re", [](S & s) { return s.continue_directive(); }},
    {in({S::DIRECTIVE}), R"re(\R[^\n\\]+)re", [](S & s) { return s.drop(); }},
    {in({S::DIRECTIVE}), R"re(\\)re", [](S & s) { return s.drop(); }},
    {in({S::DIRECTIVE}), R"re(\n)re", [](S & s) { return s.end_directive(); }},
    {tails, R"re(\R([^\n\\]|\\\n)+)re", [](S & s) { return s.drop(); }},
    {tails, R"re(\\)re", [](S & s) { return s.drop(); }},
    {tails, R"re(\n)re", [](S & s) { return s.end_tail(); }},
    {in({S::SKIP_BRANCH}), R"re(^[ \t]*#endif)re",
     [](S & s) { return s.drop_and_enter(S::TAIL_ENDIF); }},
    {in({S::SKIP_BRANCH}), R"re(\R[^\n#]+)re", [](S & s) { return s.drop(); }},
    {in({S::SKIP_BRANCH}), "#", [](S & s) { return s.drop(); }},
    {in({S::SKIP_BRANCH}), R"re(\R\n+)re", [](S & s) { return s.echo(); }},

    // Comments.
    {comment, R"re([ \t]*\*\/)re", [](S & s) { return s.block_end(); }},
    {comment, R"re([ \t]*\n)re", [](S & s) { return s.line_end(); }},
    {in({S::CMT_LINEHEAD, S::CMT_FRAMETAIL}), R"re(\R[ \t]+)re", [](S & s) { return s.hold(); }},
    {in({S::CMT_LINEHEAD}), R"re([ \t]*[^ \t\n])re", [](S & s) { return s.line_head(); }},
    {in({S::CMT_LINEHEAD}), R"re("****"/[^/])re", [](S & s) { return s.line_head(); }},
    {in({S::CMT_LINEHEAD}), R"re(\R[^ \t\n*]+)re", [](S & s) { return s.line_head(); }},
    {in({S::CMT_FRAMESKIP}), R"re(\R{words})re", [](S & s) { return s.skip_frame(); }},
    {in({S::CMT_FRAMESKIP}), R"re(\R[ \t]+|\*)re", [](S & s) { return s.skip_frame(); }},
    {in({S::CMT_TEXT}), R"re(\R{words})re", [](S & s) { return s.comment_text(); }},
    {in({S::CMT_TEXT}), R"re(\R[ \t]+|\*)re", [](S & s) { return s.comment_text(); }},
    {in({S::CMT_FRAMETAIL}), R"re([^ \t\n])re", [](S & s) { return s.frame_tail(); }},
    {in({S::CMT_AFTER}), R"re([ \t]*\n?[ \t]*\/[*/])re", [](S & s) { return s.next_comment(); }},
    {in({S::CMT_AFTER}), R"re(\R.|\n)re", [](S & s) { return s.after_comment(); }},
};

gScanTable<S> const & table() {
  static gScanTable<S> const built(rules, definitions);
  return built;
}

} // namespace

int cpre_scan::scan() {
  return run(*this, table());
}
