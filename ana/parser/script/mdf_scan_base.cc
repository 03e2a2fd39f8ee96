// Commands nest in texts and texts in commands: a stack of levels says where the parameters of a
// command go back to.
#include "ana/parser/script/mdf_scan_base.h"

#include <algorithm>
#include <cstdlib>

#include "ana/anadat/input_table.h"
#include "ana/anadat/pieces.h"
#include "ana/cmdpar/keywords.h"
#include "vlb/messages.h"

namespace {

constexpr int command_level = 0, text_level = 1;

} // namespace

mdf_scan_base::mdf_scan_base(int size) : gScanBase(size) {
  shield_quotes(true);
}

void mdf_scan_base::reset() {
  gScanBase::reset();
  levels_.clear();
}

int mdf_scan_base::text_token(gString text) {
  token_value_.set(std::move(text));
  return mdf_token::text;
}

int mdf_scan_base::enter(int condition, int token) {
  begin(condition);
  return token;
}

int mdf_scan_base::call(int level, int condition, int token) {
  levels_.push_back(level);
  return enter(condition, token);
}

void mdf_scan_base::go_to_level(int level) {
  begin(level == text_level ? TEXT_PARAM : INITIAL);
}

void mdf_scan_base::end_call() {
  int level = command_level;
  if (!levels_.empty()) {
    level = levels_.back();
    levels_.pop_back();
  }
  go_to_level(level);
}

int mdf_scan_base::end_quotes(int token) {
  int const level = levels_.empty() ? -1 : levels_.back();
  if (level != text_level)
    VLB_UNEXPECTED(" Unexpected return state: ", level);
  end_call();
  return token;
}

// White space in front of the bracket means nothing at either level.
int mdf_scan_base::escaped_bracket() {
  char const bracket[] = {token().back()};
  end_call();
  push_back({bracket, 1});
  return scan_go_on;
}

int mdf_scan_base::word() {
  gString text = value();
  if (gInput->subentry_names.contains(text)) {
    token_value_.set(std::move(text));
    return call(command_level, PARAM, mdf_token::subentry);
  }
  if (auto const * keyword = gVlsCommands.lookup(text))
    return call(command_level, PARAM, (*keyword)->token);
  if (text.front() == '@') {
    error(Msg::unknown_identifier, text);
    text.prepend('\\');
  }
  return text_token(std::move(text));
}

int mdf_scan_base::text_command() {
  gString text = value();
  if (auto const * keyword = gVlsCommands.lookup(text))
    return call(text_level, PARAM, (*keyword)->token);
  if (text.size() > 1)
    error(Msg::not_a_command, text);
  text.prepend('\\');
  return text_token(std::move(text));
}

int mdf_scan_base::variable() {
  gString name = value();
  if (!gDocVars.contains(name))
    error(Msg::not_a_variable, name);
  return text_token(Vlb::variable_piece(std::move(name)));
}

int mdf_scan_base::code_piece() {
  gString text = value();
  text.wsp_trim();
  return text_token(Vlb::variable_piece(Vlb::escape_atc(text)));
}

int mdf_scan_base::line_break(gMessage const & warning) {
  if (std::exchange(warn_line_break_, false))
    error(warning);
  return text_token(" ");
}

int mdf_scan_base::line_directive() {
  std::string const text = value();
  std::size_t const open = text.find('"');
  std::size_t const close = text.find('"', open + 1);
  char const * const number = text.c_str() + text.find_first_of("0123456789");
  set_infile(gSrcFile(gPathstring(text.substr(open + 1, close - open - 1)), gPathstring(), 0));
  // The line feed of the directive counts when the next token begins.
  constexpr long line_limit = 1'000'000'000;
  set_line(static_cast<int>(std::min(std::strtol(number, nullptr, 10), line_limit)) - 1);
  return scan_go_on;
}
