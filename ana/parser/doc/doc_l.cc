// The rules of the text-unit language. What is dropped character by character is matched in runs,
// since most of a source is code and most comments are free text.
#include "ana/parser/doc/doc_scan.h"

using namespace Doc;

namespace {

using S = doc_scan;

constexpr unsigned all_kinds = S::units | S::subentries;
constexpr auto cpp = gLanguage::cpp;
constexpr auto pascal = gLanguage::pascal;

gScanDefinition const definitions[] = {
    {"id", "[A-Za-z_][A-Za-z0-9_]*"},
    {"ws", R"([ \t])"},
    {"any", R"(.|\n)"},
    {"sep", R"([^A-Za-z0-9_ \t\n-])"},
    {"words", R"([A-Za-z_][A-Za-z0-9_ \t-]*)"},
    {"quote", R"([\xB4\xEF])"},
    {"keyword", "@{id}{ws}*{sep}?"},
    // The end of the comment, as long as any other rule's match would be.
    {"ecom", R"("@_vlecom"{ws}*{sep}?)"},
    // Text up to a bracket that doesn't hold the end of the comment: beginnings of its mark, and
    // where they turn out to be something else.
    {"part", "@(_(v(l(e(c(o)?)?)?)?)?)?"},
    {"miss", "@([^@)_]|_([^@)v]|v([^@)l]|l([^@)e]|e([^@)c]|c([^@)o]|o[^@)m]))))))"},
    {"parens", R"(\(([^)@]|({part})*({miss}))*({part})*\))"},
    {"symbol",
     R"re("<<="|">>="|"->*"|"->"|"++"|"--"|"&&"|"||"|"<<"|">>"|"()"|"[]"|[-+*/%^&|=!<>]=|[-+*/%^&|~!=<>,])re"},
    // Words of a type, with scopes and then pointers behind them.
    {"typename", R"re({id}({ws}*"::"{ws}*{id}|{ws}+{id})*({ws}*[*&])*)re"},
};

gScanRule<S> const rules[] = {
    {in({OUTSIDE}), "@_vlbcom", [](S & s) { return s.begin_comment(); }},
    {in({OUTSIDE}), R"(\R[^@]+)", [](S & s) { return s.drop(); }},
    {in({OUTSIDE}), "@", [](S & s) { return s.drop(); }},
    {in({FIRST, FREE, BODY, DECL, BASES, TEMPLATE, TEXTNAME, PARSTART}), R"(\R{ecom})",
     [](S & s) { return s.end_comment(); }},
    {in({AFTERID}), R"(\R[ \t\n]*{ecom})", [](S & s) { return s.end_comment(); }},

    // Outside any unit.
    {in({FIRST, FREE}), "@b_cite", [](S & s) { return s.begin_citation(); }},
    {in({FIRST, FREE}), "@e_cite", [](S & s) { return s.end_citation(); }},
    // The preprocessor tells the two special openers apart by the blanks in front of the mark.
    {in({FIRST}), R"(" @_vlukwd")", [](S & s) { return s.marked_comment(s.star_keyword()); }},
    {in({FIRST}), R"("  @_vlukwd")", [](S & s) { return s.marked_comment(s.slash_keyword()); }},
    {in({FIRST}), R"(\R{words}{sep})", [](S & s) { return s.first_words(true); }},
    {in({FIRST}), R"(\R{words})", [](S & s) { return s.first_words(false); }},
    {in({FIRST, FREE}), R"(\R{keyword})",
     [](S & s) { return s.keyword_or_reject(S::units, false); }},
    {in({FIRST, FREE}), R"(\R@{id})", [](S & s) { return s.unknown_keyword(); }},
    {in({FIRST}), R"(\R[ \t\n]+)", [](S & s) { return s.drop(); }},
    {in({FIRST}), "{any}", [](S & s) { return s.leave_for(FREE); }},
    {in({FREE}), R"(\R\n{ws}*\n[ \t\n]*{words}{sep})",
     [](S & s) { return s.free_paragraph(true); }},
    {in({FREE}), R"(\R\n{ws}*\n[ \t\n]*{words})", [](S & s) { return s.free_paragraph(false); }},
    {in({FREE}), R"(\R\n{ws}*\n[ \t\n]*)", [](S & s) { return s.free_empty_lines(); }},
    {in({FREE}), R"(\R([^@\n]|\n{ws}*[^@\n \t])+)", [](S & s) { return s.drop(); }},
    {in({FREE}), R"(\R@|\n)", [](S & s) { return s.drop(); }},

    // Behind a keyword.
    {in({IDSPEC}), "{any}", [](S & s) { return s.choose_identifier(); }},
    {in({IDENT}), "{id}", [](S & s) { return s.plain_identifier(); }},
    {in({IDENT}), R"(\R[ \t\n]+)", [](S & s) { return s.drop(); }},
    {in({IDENT}), "{any}", [](S & s) { return s.missing_identifier(); }},
    {in({AFTERID}), R"(\R[ \t\n]*[^ \t\n]|[ \t\n]+)", [](S & s) { return s.behind_identifier(); }},
    {in({TEXTNAME}), R"(\R{ws}*{id})", [](S & s) { return s.text_unit_name(); }},
    {in({TEXTNAME}), R"(\R{any})", [](S & s) { return s.leave_for(BODY); }},

    // Heads of declarations.
    {in({DECL}), "class", [](S & s) { return s.head_keyword_or_reject(cpp, KW_CLASS); }},
    {in({DECL}), "export", [](S & s) { return s.head_keyword_or_reject(cpp, KW_EXPORT); }},
    {in({DECL}), "struct", [](S & s) { return s.head_keyword_or_reject(cpp, KW_STRUCT); }},
    {in({DECL}), "template", [](S & s) { return s.head_keyword_or_reject(cpp, KW_TEMPLATE); }},
    {in({DECL}), "union", [](S & s) { return s.head_keyword_or_reject(cpp, KW_UNION); }},
    {in({DECL}), "[Cc][Ll][Aa][Ss][Ss]",
     [](S & s) { return s.head_keyword_or_reject(pascal, KW_CLASS); }},
    {in({DECL}), "[Pp][Rr][Oo][Cc][Ee][Dd][Uu][Rr][Ee]",
     [](S & s) { return s.head_keyword_or_reject(pascal, KW_PROCEDURE); }},
    {in({DECL}), "[Ff][Uu][Nn][Cc][Tt][Ii][Oo][Nn]",
     [](S & s) { return s.head_keyword_or_reject(pascal, KW_FUNCTION); }},
    {in({DECL}), "[Cc][Oo][Nn][Ss][Tt][Rr][Uu][Cc][Tt][Oo][Rr]",
     [](S & s) { return s.head_keyword_or_reject(pascal, KW_CONSTRUCTOR); }},
    {in({DECL}), "[Dd][Ee][Ss][Tt][Rr][Uu][Cc][Tt][Oo][Rr]",
     [](S & s) { return s.head_keyword_or_reject(pascal, KW_DESTRUCTOR); }},
    {in({DECL}), R"(operator{ws}*({symbol}))", [](S & s) { return s.operator_symbol(); }},
    {in({DECL}), R"re(operator{ws}+(new|delete)({ws}*"[]")?)re",
     [](S & s) { return s.operator_words("[]"); }},
    {in({DECL}), R"re(operator{ws}+{typename}({ws}*"()")?)re",
     [](S & s) { return s.operator_words("()"); }},
    {in({DECL}), "~?{id}", [](S & s) { return s.head_identifier(s.token()); }},
    {in({DECL}), "{parens}", [](S &) { return int(PARENS); }},
    {in({DECL}), "::", [](S &) { return int(SCOPE); }},
    {in({DECL}), R"([^A-Za-z0-9 \t\n])", [](S & s) { return s.head_separator_or_reject(); }},
    {in({DECL}), ":",
     [](S & s) {
       s.begin(BASES);
       return s.drop();
     }},
    {in({DECL}), R"(\.)", [](S & s) { return s.enter(DECL); }},
    {in({DECL}), "<", [](S & s) { return s.begin_template(); }},
    {in({DECL}), R"(\n)", [](S & s) { return s.head_line_end(); }},
    {in({DECL}), "{any}", [](S & s) { return s.drop(); }},
    {in({BASES}), "[^A-Za-z0-9]", [](S & s) { return s.bases_separator_or_reject(); }},
    {in({BASES}), R"(\n)", [](S & s) { return s.bases_line_end(); }},
    {in({BASES}), "{any}", [](S & s) { return s.drop(); }},
    {in({TEMPLATE}), R"(\R[^<>@]+)", [](S & s) { return s.drop(); }},
    {in({TEMPLATE}), R"(\R@)", [](S & s) { return s.drop(); }},
    {in({TEMPLATE}), "<", [](S & s) { return s.template_bracket(1); }},
    {in({TEMPLATE}), ">", [](S & s) { return s.template_bracket(-1); }},

    // The text of a unit.
    {in({BODY}), R"(\R{keyword})", [](S & s) { return s.keyword_or_reject(all_kinds, false); }},
    {in({BODY}), "@end", [](S & s) { return s.end_unit(); }},
    {in({BODY}), "@b_verbatim", [](S & s) { return s.command_or_reject(B_VERBATIM, VERBATIM); }},
    {in({BODY}), "@xe", [](S & s) { return s.command_or_reject(XE, INDEXENTRY); }},
    {in({BODY}), R"(\R@endl{ws}*\n?{ws}*)",
     [](S & s) { return s.command_or_reject(ENDL, PARAMS); }},
    {in({BODY}), R"(\R@endp[ \t\n]*)", [](S & s) { return s.command_or_reject(ENDP, PARAMS); }},
    {in({BODY}), R"(\R@({id})?)", [](S & s) { return s.body_word(); }},
    {in({BODY}), "{quote}{quote}", [](S & s) { return s.body_quote(XREF_QUOTE, XREF); }},
    {in({BODY}), "{quote}", [](S & s) { return s.body_quote(CODE_OPEN, CODETEXT); }},
    {in({BODY}), R"(\R^-{ws}+)", [](S & s) { return s.item_or_reject(true, s.auto_enum(), ENUM); }},
    {in({BODY}), R"(\R-{ws}+)",
     [](S & s) { return s.item_or_reject(s.at_entry(), s.auto_enum(), ENUM); }},
    {in({BODY}), R"(\R^-\.{ws}+)", [](S & s) { return s.item_or_reject(true, s.auto_num(), NUM); }},
    {in({BODY}), R"(\R-\.{ws}+)",
     [](S & s) { return s.item_or_reject(s.at_entry(), s.auto_num(), NUM); }},
    {in({BODY}), R"(\R^{words}{sep})",
     [](S & s) { return s.keyword_or_reject(S::subentries, true); }},
    {in({BODY}), R"(\R^{words})", [](S & s) { return s.keyword_or_reject(S::subentries, false); }},
    {in({BODY}), R"(\$({id})?)", [](S & s) { return s.body_variable(); }},
    {in({BODY}), R"(([^@$ \t\n\xB4\xEF\\]|\\({any}))+)", [](S & s) { return s.body_text(); }},
    {in({BODY}), R"(\R\n{ws}*\n[ \t\n]*)", [](S & s) { return s.empty_line(); }},
    {in({BODY}), R"(\R\n{ws}*)", [](S & s) { return s.line_end(); }},
    {in({BODY}), R"(\R{ws}+)", [](S & s) { return s.blanks(); }},

    // Behind an empty line. Items count there whatever their indentation.
    {in({PARSTART}), R"(\R{keyword})", [](S & s) { return s.keyword_or_text(); }},
    {in({PARSTART}), R"(\R{words}{sep})", [](S & s) { return s.plain_keyword_or_reject(true); }},
    {in({PARSTART}), R"(\R{words})", [](S & s) { return s.plain_keyword_or_reject(false); }},
    {in({PARSTART}), R"(\R-{ws}+)",
     [](S & s) { return s.item_or_reject(true, s.auto_enum(), ENUM); }},
    {in({PARSTART}), R"(\R-\.{ws}+)",
     [](S & s) { return s.item_or_reject(true, s.auto_num(), NUM); }},
    {in({PARSTART}), R"(\R[ \t\n]+)", [](S & s) { return s.further_empty_lines(); }},
    {in({PARSTART}), R"(\R{any})", [](S & s) { return s.leave_for(BODY); }},

    // Code text, index entries, verbatim blocks, references.
    {in({CODETEXT}), R"([^\n\xB4\xEF]+)", [](S & s) { return s.trimmed_escaped_text(); }},
    {in({CODETEXT}), "{quote}", [](S & s) { return s.last(CODE_CLOSE); }},
    {in({CODETEXT}), R"(\R\n+)", [](S & s) { return s.code_line_break(); }},
    {in({VERBATIM}), R"([^@\n]+)", [](S & s) { return s.verbatim_text(); }},
    {in({VERBATIM}), R"(\\@e_verbatim)", [](S & s) { return s.text_token(s.token()); }},
    {in({VERBATIM}), "@e_verbatim", [](S & s) { return s.last(E_VERBATIM); }},
    {in({VERBATIM}), "@", [](S & s) { return s.escaped_text(); }},
    {in({VERBATIM}), R"(\n)", [](S & s) { return s.verbatim_line_end(); }},
    {in({INDEXENTRY}), R"([^$<>{}\n]+)", [](S & s) { return s.trimmed_escaped_text(); }},
    {in({INDEXENTRY}), R"(\$({id})?)", [](S & s) { return s.brace_variable(); }},
    {in({INDEXENTRY}), R"([<{}])", [](S & s) { return s.enter(INDEXENTRY); }},
    {in({INDEXENTRY}), ">", [](S & s) { return s.last('>'); }},
    {in({INDEXENTRY}), R"(\R{ws}*\n[ \t\n]*)", [](S & s) { return s.index_line_break(); }},
    {in({XREF}), R"([^$,\n\xB4\xEF]+)", [](S & s) { return s.word(); }},
    {in({XREF}), R"(\$({id})?)", [](S & s) { return s.word_variable(); }},
    {in({XREF}), ",", [](S & s) { return s.enter(XREF); }},
    {in({XREF}), "{quote}{quote}", [](S & s) { return s.last(XREF_QUOTE); }},
    {in({XREF}), "{quote}", [](S &) { return int(CODE_OPEN); }},
    {in({XREF}), R"(\n)", [](S & s) { return s.drop(); }},

    // Parameters.
    {in({PARAMS}), "<", [](S & s) { return s.enter(ANGLE); }},
    {in({PARAMS}), R"(\{)", [](S & s) { return s.enter(BRACE); }},
    {in({PARAMS}), R"(\\[<{])", [](S & s) { return s.escaped_bracket(); }},
    {in({PARAMS}), "{any}", [](S & s) { return s.end_of_params(); }},
    {in({ANGLE}), R"([^$,=!>\n]+)", [](S & s) { return s.word(); }},
    {in({ANGLE}), R"(\$({id})?)", [](S & s) { return s.word_variable(); }},
    {in({ANGLE}), "==", [](S &) { return int(OP_EQ); }},
    {in({ANGLE}), "!=", [](S &) { return int(OP_NE); }},
    {in({ANGLE}), "[,=]", [](S & s) { return s.enter(ANGLE); }},
    {in({ANGLE}), ">", [](S & s) { return s.enter(PARAMS); }},
    {in({BRACE}), R"(([^@$}\xB4\xEF\\]|\\({any}))+)", [](S & s) { return s.brace_text(); }},
    {in({BRACE}), "{quote}{quote}", [](S & s) { return s.nested(XREF_QUOTE, XREF); }},
    {in({BRACE}), "{quote}", [](S & s) { return s.nested(CODE_OPEN, CODETEXT); }},
    {in({BRACE}), R"(\R@endl{ws}*\n?{ws}*)", [](S &) { return int(ENDL); }},
    {in({BRACE}), R"(\R@endp[ \t\n]*)", [](S &) { return int(ENDP); }},
    {in({BRACE}), "@xe", [](S & s) { return s.nested(XE, INDEXENTRY); }},
    {in({BRACE}), "@({id})?", [](S & s) { return s.brace_word(); }},
    {in({BRACE}), R"(\$({id})?)", [](S & s) { return s.brace_variable(); }},
    {in({BRACE}), R"(\})", [](S & s) { return s.enter(PARAMS); }},
};

gScanTable<S> const & table() {
  static gScanTable<S> const built(rules, definitions);
  return built;
}

} // namespace

int doc_scan::scan() {
  return run(*this, table());
}
