// Parameters of commands: words between angle brackets, text between braces. Text may hold further
// commands, so each command remembers where it stands.
#include "ana/anadat/pieces.h"
#include "ana/parser/doc/doc_scan_base.h"
#include "vlb/messages.h"

using namespace Doc;

namespace {

// Text without white space at its ends. A blank that a backslash protects stays.
gString trimmed(gString text) {
  text.wsp_trim();
  std::size_t const last = text.find_last_not_of('\\');
  std::size_t const slashes = text.size() - (last == gString::npos ? 0 : last + 1);
  if (slashes % 2 == 1)
    text += ' ';
  return text;
}

} // namespace

int doc_scan_base::enter(int condition) {
  begin(condition);
  return static_cast<unsigned char>(token()[0]);
}

int doc_scan_base::escaped_bracket() {
  char const bracket = token()[1];
  go_back();
  push_back({&bracket, 1});
  return scan_go_on;
}

int doc_scan_base::end_of_params() {
  back();
  go_back();
  return scan_go_on;
}

int doc_scan_base::word() {
  value_.set(value().wsp_norm());
  return WORD;
}

int doc_scan_base::word_variable() {
  check_variable();
  value_.set(Vlb::variable_piece(value()));
  return WORD;
}

int doc_scan_base::brace_text() {
  return text_token(trimmed(value()));
}

int doc_scan_base::brace_word() {
  if (auto const * command = gDocCommands.lookup(token()))
    return nested(Token((*command)->token), PARAMS);
  if (length() > 1)
    error(Msg::not_a_command, value());
  return escaped_word();
}

int doc_scan_base::brace_variable() {
  check_variable();
  return variable_token(value());
}

int doc_scan_base::nested(Token token, int condition) {
  push(Return::brace);
  begin(condition);
  return token;
}
