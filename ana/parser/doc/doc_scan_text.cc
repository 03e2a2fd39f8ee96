// The text of a unit: words, white space, items, commands, and the stretches that have rules of
// their own, namely code text, references, index entries and verbatim blocks.
#include <algorithm>

#include "ana/anadat/pieces.h"
#include "ana/parser/doc/doc_scan_base.h"
#include "vlb/messages.h"

using namespace Doc;

int doc_scan_base::text_token(std::string_view text) {
  value_.set(pool_.get(text));
  return TEXT;
}

// Variables aren't shared with text that looks like them.
int doc_scan_base::variable_token(gString name) {
  if (Vlb::variable_kind(name) == gPiece::plain)
    return text_token(name);
  value_.set(make_ref<gString>(Vlb::variable_piece(std::move(name))));
  return TEXT;
}

// Bytes of ASCII are the same in the file and in the machine.
int doc_scan_base::own_text() {
  bool const is_ascii = std::all_of(token().begin(), token().end(), [](char c) { return c >= 0; });
  return is_ascii ? text_token(token()) : text_token(value());
}

int doc_scan_base::blank() {
  value_.set(blank_);
  return TEXT;
}

int doc_scan_base::escaped_word() {
  return text_token("\\" + value());
}

void doc_scan_base::go_back() {
  Return const place = return_stack_.empty() ? Return::free : return_stack_.back();
  if (!return_stack_.empty())
    return_stack_.pop_back();
  begin(place == Return::body ? BODY : place == Return::brace ? BRACE : FREE);
}

int doc_scan_base::last(int token) {
  go_back();
  return token;
}

int doc_scan_base::end_unit() {
  begin(FREE);
  in_subject_ = false;
  return END;
}

int doc_scan_base::command_or_reject(Token token, int condition) {
  if (verbatim_)
    return scan_reject;
  at_entry_ = false;
  push(Return::body);
  begin(condition);
  return token;
}

int doc_scan_base::body_word() {
  at_entry_ = false;
  auto const * command = gDocCommands.lookup(token());
  if (command && !verbatim_) {
    int const number = (*command)->token;
    if (number == B_TABLE || number == E_TABLE)
      in_table_ = number == B_TABLE;
    push(Return::body);
    begin(PARAMS);
    return number;
  }
  if (!command && length() > 1)
    error(Msg::unknown_identifier, value());
  return escaped_word();
}

int doc_scan_base::body_quote(Token token, int condition) {
  at_entry_ = false;
  if (verbatim_)
    return own_text();
  push(Return::body);
  begin(condition);
  return token;
}

int doc_scan_base::item_or_reject(bool is_head, bool enabled, Token token) {
  if (!is_head || !enabled || verbatim_)
    return scan_reject;
  at_entry_ = false;
  begin(BODY);
  return token;
}

void doc_scan_base::check_variable() {
  if (length() > 1 && !gDocVars.contains(token()))
    error(Msg::not_a_variable, value());
}

int doc_scan_base::body_variable() {
  at_entry_ = false;
  if (verbatim_)
    return own_text();
  check_variable();
  return variable_token(value());
}

// A backslash protects the next character, but not the end of the comment: what looks like a
// protected end is a backslash that was the comment's last character.
int doc_scan_base::body_text() {
  at_entry_ = false;
  if (token().find('@') != std::string_view::npos) {
    std::size_t const end = token().find("\\@_vlecom");
    if (end == 0) {
      cut_to(1);
      return text_token("\\\\");
    }
    if (end != std::string_view::npos)
      cut_to(static_cast<int>(end));
  }
  return own_text();
}

int doc_scan_base::end_subject() {
  in_subject_ = false;
  return SUBJECT_END;
}

int doc_scan_base::empty_line() {
  begin(PARSTART);
  if (in_subject_)
    return end_subject();
  if (in_table_)
    return scan_go_on;
  return verbatim_ ? own_text() : int(ENDP);
}

// The rest of a run of empty lines that is longer than a token may be.
int doc_scan_base::further_empty_lines() {
  return verbatim_ ? own_text() : scan_go_on;
}

int doc_scan_base::line_end() {
  if (in_subject_ && ++subject_lines_ > max_subject_lines())
    return end_subject();
  return blanks();
}

int doc_scan_base::blanks() {
  if (in_table_)
    return scan_go_on;
  return verbatim_ ? own_text() : blank();
}

// A backslash may begin the next token, which shows the end of a block as text.
int doc_scan_base::verbatim_text() {
  if (length() > 1 && token().ends_with('\\'))
    cut_to(length() - 1);
  return escaped_text();
}

int doc_scan_base::escaped_text() {
  return text_token(Vlb::escape_atc(value()));
}

// Code text that is nothing but a variable has its value.
int doc_scan_base::trimmed_escaped_text() {
  return variable_token(Vlb::escape_atc(value().wsp_trim()));
}

int doc_scan_base::code_line_break() {
  if (warn_linebreak_)
    error(Msg::code_line_break);
  return blank();
}

int doc_scan_base::index_line_break() {
  if (warn_linebreak_)
    error(Msg::index_line_break);
  warn_linebreak_ = false;
  return blank();
}

int doc_scan_base::verbatim_line_end() {
  if (in_subject_)
    ++subject_lines_;
  return own_text();
}
