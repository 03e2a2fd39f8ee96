// The words of the script. A command opens PARAM, which takes its parameters as long as they come
// and then goes back to where the command stood.
#include "ana/parser/script/mdf_scan.h"

#include "vlb/messages.h"

namespace {

using S = mdf_scan;
constexpr int INITIAL = S::INITIAL, REFS = S::REFS, PARAM = S::PARAM, ATTR = S::ATTR,
              CODE = S::CODE, TEXT_PARAM = S::TEXT_PARAM, XE = S::XE;

int character(S & s) {
  return static_cast<unsigned char>(s.token().back());
}
int drop(S &) {
  return scan_go_on;
}
int variable(S & s) {
  return s.variable();
}
int code_piece(S & s) {
  return s.code_piece();
}
int index_entry(S & s) {
  return s.call(0, XE, mdf_token::xe);
}

int normalized_text(S & s) {
  gString text = s.value();
  text.wsp_norm();
  return s.text_token(std::move(text));
}

int parameters_end(S & s) {
  s.back();
  s.end_call();
  return scan_go_on;
}

// The quote mark of code text is a byte of its own in the machine.
gScanDefinition const definitions[] = {
    {"name", "[A-Za-z_][A-Za-z_0-9]*"},
    {"quote", "[\xb4\xef]"},
};

gScanRule<S> const rules[] = {
    {in({INITIAL}), "[ \t]*#line[ \t]+[0-9]+[ \t]+\\\"[^\\\"\n]+\\\"[^\n]*\n",
     [](S & s) { return s.line_directive(); }},
    {in({INITIAL}), "{quote}{quote}", [](S &) { return int(mdf_token::ref_quote); }},
    {in({INITIAL}), "{quote}", [](S &) { return int(mdf_token::code_open); }},
    {in({INITIAL}), "@xe", index_entry},
    {in({INITIAL}), "@?{name}", [](S & s) { return s.word(); }},
    {in({INITIAL}), "\\${name}", variable},
    {in({INITIAL}), "\\R[ \t\n]+", drop},
    {in({INITIAL}), ".", character},

    {in({PARAM}), "[ \t\n]*<", [](S & s) { return s.enter(ATTR, '<'); }},
    {in({PARAM}), "[ \t\n]*\\{", [](S & s) { return s.enter(TEXT_PARAM, '{'); }},
    {in({PARAM}), "[ \t\n]*\\\\[<{]", [](S & s) { return s.escaped_bracket(); }},
    // Much white space, or white space up to the end of the script: neither level needs it.
    {in({PARAM}), "\\R[ \t\n]+", drop},
    {in({PARAM}), "[ \t\n]*.", parameters_end},

    {in({ATTR}), "[^!$,=>\n]+", normalized_text},
    {in({ATTR}), "\\${name}", variable},
    {in({ATTR}), "==", [](S &) { return int(mdf_token::op_eq); }},
    {in({ATTR}), "!=", [](S &) { return int(mdf_token::op_ne); }},
    {in({ATTR}), "[,=]", character},
    {in({ATTR}), ">", [](S & s) { return s.enter(PARAM, '>'); }},

    {in({TEXT_PARAM}), "([^$@\\\\}\xb4\xef]|\\\\(.|\n))+", normalized_text},
    {in({TEXT_PARAM}), "{quote}{quote}",
     [](S & s) { return s.call(1, REFS, mdf_token::ref_quote); }},
    {in({TEXT_PARAM}), "{quote}", [](S & s) { return s.call(1, CODE, mdf_token::code_open); }},
    {in({TEXT_PARAM}), "@xe", index_entry},
    {in({TEXT_PARAM}), "@endl[ \t]*(\n[ \t]*)?", [](S &) { return int(mdf_token::endl); }},
    {in({TEXT_PARAM}), "@endp[ \t\n]*", [](S &) { return int(mdf_token::endp); }},
    {in({TEXT_PARAM}), "@{name}?", [](S & s) { return s.text_command(); }},
    {in({TEXT_PARAM}), "\\${name}", variable},
    {in({TEXT_PARAM}), "\\}", [](S & s) { return s.enter(PARAM, '}'); }},

    {in({CODE}), "[^\n\xb4\xef]+", code_piece},
    {in({CODE}), "{quote}", [](S & s) { return s.end_quotes(mdf_token::code_close); }},
    {in({CODE}), "\\R\n+", [](S & s) { return s.line_break(Msg::code_line_break); }},

    {in({REFS}), "[^$,\n\xb4\xef]+", normalized_text},
    {in({REFS}), "\\${name}", variable},
    {in({REFS}), ",", character},
    {in({REFS}), "{quote}{quote}", [](S & s) { return s.end_quotes(mdf_token::ref_quote); }},
    {in({REFS}), "{quote}", [](S &) { return int(mdf_token::code_open); }},
    {in({REFS}), "\n", drop},

    {in({XE}), "[^$<>{}\n]+", code_piece},
    {in({XE}), "\\${name}", variable},
    {in({XE}), "[ \t\n]*<", character},
    {in({XE}), "[{}]", character},
    {in({XE}), ">",
     [](S & s) {
       s.end_call();
       return int('>');
     }},
    {in({XE}), "\\R\n+", [](S & s) { return s.line_break(Msg::index_line_break); }},
};

gScanTable<S> const & table() {
  static gScanTable<S> const built(rules, definitions);
  return built;
}

} // namespace

int mdf_scan::scan() {
  return run(*this, table());
}
