// The rules of the Pascal comment preprocessor. Long stretches of nothing special are taken as
// runs, which are the same to the output as their single characters.
#include "ana/parser/pre/ppre_scan.h"

namespace {

using S = ppre_scan;

constexpr unsigned code = in({S::CODE});
constexpr unsigned head = in({S::CMT_LINEHEAD});
constexpr unsigned line = in({S::CMT_TEXT, S::CMT_FRAMESKIP, S::CMT_FRAMETAIL});
constexpr unsigned after = in({S::CMT_AFTER});

gScanDefinition const definitions[] = {
    {"str", R"re('[^'\n]*')re"},
    // A character of a comment that can't begin anything, and words of such characters with the
    // blanks in front of them. Blanks with nothing behind them may belong to the end of the line
    // or of the comment.
    {"chr", R"re([^ \t\n'({/*}])re"},
    {"words", R"re(([ \t]*[(/]?{chr})+)re"},
};

gScanRule<S> const rules[] = {
    // Code.
    {code, R"re(\R([^'({/]|{str}|\(([^'({/*]|{str})|\/([^'({/]|{str}))+)re",
     [](S & s) { return s.echo(); }},
    {code, R"re("(**"/[ \t\n])re", [](S & s) { return s.open_star_comment(); }},
    {code, R"re("(*")re", [](S & s) { return s.open_comment(S::PAREN, "@_vlbcom "); }},
    {code, R"re(\{)re", [](S & s) { return s.open_comment(S::BRACE, "@_vlbcom "); }},
    {code, R"re("///"/[ \t\n])re", [](S & s) { return s.open_slash_comment(); }},
    {code, R"re("//")re", [](S & s) { return s.open_comment(S::LINE, "@_vlbcom "); }},
    {code, R"re(.|\n)re", [](S & s) { return s.echo(); }},

    // Comment lines. A string hides what stands in it, and leaves the condition as it is.
    {line, "{str}", [](S & s) { return s.echo(); }},
    {line, R"re("(*")re", [](S & s) { return s.inner_opener(S::PAREN); }},
    {line, R"re(\{)re", [](S & s) { return s.inner_opener(S::BRACE); }},
    {line, R"re("//")re", [](S & s) { return s.inner_opener(S::LINE); }},
    {line, R"re([ \t]*"*)")re", [](S & s) { return s.inner_closer(S::PAREN); }},
    {line, R"re([ \t]*\})re", [](S & s) { return s.inner_closer(S::BRACE); }},
    {line | head, R"re([ \t]*\n)re", [](S & s) { return s.line_end(); }},
    {in({S::CMT_FRAMESKIP}), R"re(\R{words})re", [](S & s) { return s.skip_frame(); }},
    {in({S::CMT_FRAMESKIP}), R"re(\R[ \t]+|['(/*])re", [](S & s) { return s.skip_frame(); }},
    {in({S::CMT_TEXT}), R"re(\R{words})re", [](S & s) { return s.comment_text(); }},
    {in({S::CMT_TEXT}), R"re(\R[ \t]+|['(/*])re", [](S & s) { return s.comment_text(); }},
    {in({S::CMT_FRAMETAIL}), R"re(\R[ \t]+)re", [](S & s) { return s.hold(); }},
    {in({S::CMT_FRAMETAIL}), R"re([^ \t\n])re", [](S & s) { return s.frame_tail(); }},

    // The heads of comment lines.
    {head, R"re("(*")re", [](S & s) { return s.held_opener(S::PAREN); }},
    {head, R"re(\{)re", [](S & s) { return s.held_opener(S::BRACE); }},
    {head, R"re("//")re", [](S & s) { return s.held_opener(S::LINE); }},
    {head, R"re("*)")re", [](S & s) { return s.held_closer(S::PAREN); }},
    {head, R"re(\})re", [](S & s) { return s.held_closer(S::BRACE); }},
    {head, R"re(\R[ \t]+)re", [](S & s) { return s.hold(); }},
    {head, R"re("****"/[^)])re", [](S & s) { return s.line_head(); }},
    {head, R"re(\R[ \t]*[^ \t\n({/*}]+|[(/*])re", [](S & s) { return s.line_head(); }},

    {after, R"re("(*")re", [](S & s) { return s.next_comment(S::PAREN); }},
    {after, R"re(\{)re", [](S & s) { return s.next_comment(S::BRACE); }},
    {after, R"re("//")re", [](S & s) { return s.next_comment(S::LINE); }},
    {after, R"re(\R[ \t]+)re", [](S & s) { return s.hold(); }},
    {after, R"re(\n)re", [](S & s) { return s.next_line(); }},
    {after, R"re([^ \t\n])re", [](S & s) { return s.after_comment(); }},
};

gScanTable<S> const & table() {
  static gScanTable<S> const built(rules, definitions);
  return built;
}

} // namespace

int ppre_scan::scan() {
  return run(*this, table());
}
