// What the rules of the C/C++ comment preprocessor do: code, directives, macros, and where comments
// begin and end.
#include "ana/parser/pre/cpre_scan_base.h"

#include "ana/anadat/input_table.h"
#include "ana/parser/pre/cpp_long_words.h"

cpre_scan_base::cpre_scan_base(int size)
    : gPreScanBase(size, {.line_head = CMT_LINEHEAD,
                          .frame_skip = CMT_FRAMESKIP,
                          .text = CMT_TEXT,
                          .frame_tail = CMT_FRAMETAIL,
                          .after = CMT_AFTER}) {
  load_options();
}

void cpre_scan_base::reset() {
  gPreScanBase::reset();
  line_comment_ = false;
  macro_action_ = 0;
  begin(code());
}

void cpre_scan_base::load_options() {
  gPreScanBase::load_options();
  macros_.load();
  frame_chars_.assign(gInput->comments.cpp_frame);
  line_chars_.assign(gInput->comments.cpp_line);
}

int cpre_scan_base::plain_code() {
  keep_words_whole(*this);
  return echo();
}

int cpre_scan_base::drop_and_enter(int condition) {
  begin(condition);
  return scan_go_on;
}

int cpre_scan_base::continue_directive() {
  ECHO('\n');
  return scan_go_on;
}

int cpre_scan_base::end_directive() {
  begin(code());
  return echo();
}

// The line end belongs to what follows.
int cpre_scan_base::end_tail() {
  begin(condition() == TAIL_ELSE ? int(SKIP_BRANCH) : code());
  back();
  return scan_go_on;
}

int cpre_scan_base::macro_call() {
  gCppMacro const * macro = macros_.find(token());
  if (!macro || !macro->parameterized)
    return scan_reject;
  macro_action_ = macro->action;
  begin(MACROARGS);
  return macro->action == gCppMacroTable::keep ? echo() : drop();
}

int cpre_scan_base::macro_name() {
  gCppMacro const * macro = macros_.find(token());
  bool const removed = macro && !macro->parameterized && macro->action != gCppMacroTable::keep;
  return removed ? drop() : echo();
}

int cpre_scan_base::macro_arguments() {
  begin(code());
  if (macro_action_ == gCppMacroTable::keep)
    return echo();
  if (macro_action_ == gCppMacroTable::keep_params)
    ECHO(token().substr(1, token().size() - 2));
  return scan_go_on;
}

int cpre_scan_base::open_comment(bool line_comment, std::string_view opener) {
  line_comment_ = line_comment;
  begin(CMT_LINEHEAD);
  ECHO(opener);
  return scan_go_on;
}

// The two special openers differ by the blanks between the words: the reader of text units tells
// by them which source pattern the comment asks for.
int cpre_scan_base::open_star_comment() {
  return open_comment(false, spt_2star_ ? "@_vlbcom @_vlukwd " : "@_vlbcom ");
}

int cpre_scan_base::open_slash_comment() {
  return open_comment(true, spt_3slash_ ? "@_vlbcom  @_vlukwd " : "@_vlbcom ");
}

int cpre_scan_base::block_end() {
  if (line_comment_)
    return scan_reject;
  return close_comment();
}

int cpre_scan_base::line_end() {
  if (line_comment_) {
    back();
    return close_comment();
  }
  frame_run_.clear();
  begin(CMT_LINEHEAD);
  return echo();
}

// A comment that follows directly is part of the one before: its opener becomes two blanks.
int cpre_scan_base::next_comment() {
  std::string_view const text = token();
  line_comment_ = text.back() == '/';
  begin(CMT_LINEHEAD);
  ECHO(text.substr(0, text.size() - 2));
  ECHO("  ");
  return scan_go_on;
}

int cpre_scan_base::after_comment() {
  begin(code());
  write_close();
  back();
  return scan_go_on;
}
