// What the rules of the C/C++ comment preprocessor do. A comment line passes through three
// conditions: its head is held back in case the whole line is decoration, then frame characters
// become blanks, then its text is copied, with frame characters held back in case the line ends.
#include "ana/parser/cpre_scan_base.h"

#include "ana/parser/cpp_long_words.h"
#include "app/options/options.h"

namespace {

bool is_blank(char c) {
  return c == ' ' || c == '\t';
}

} // namespace

cpre_scan_base::cpre_scan_base(int size) : gPreScanBase(size) {
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
  frame_chars_.assign(Vapp::option_string("ana/cpp_frame"));
  line_chars_.assign(Vapp::option_string("ana/cpp_line"));
}

int cpre_scan_base::echo() {
  ECHO(token());
  return scan_go_on;
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
  begin(CMT_AFTER);
  close_text_ = "@_vlecom ";
  frame_run_.clear();
  return scan_go_on;
}

int cpre_scan_base::line_end() {
  frame_run_.clear();
  if (!line_comment_) {
    begin(CMT_LINEHEAD);
    return echo();
  }
  begin(CMT_AFTER);
  close_text_ = "@_vlecom ";
  back();
  return scan_go_on;
}

int cpre_scan_base::hold_blanks() {
  frame_run_ += token();
  return scan_go_on;
}

// Blanks and characters that may be decoration, up to the first that can't.
int cpre_scan_base::line_head() {
  for (char c : token())
    if (!is_blank(c) && !line_chars_.has(c))
      return give_head_back();
  return hold_blanks();
}

// The line has text: its head is read again, as a frame to be removed.
int cpre_scan_base::give_head_back() {
  begin(CMT_FRAMESKIP);
  back();
  if (!frame_run_.empty())
    push_back(frame_run_);
  frame_run_.clear();
  return scan_go_on;
}

// Frame characters become blanks, so that columns stay.
int cpre_scan_base::skip_frame() {
  std::string_view const text = token();
  std::size_t i = 0;
  for (; i < text.size(); ++i)
    if (is_blank(text[i]))
      ECHO(text[i]);
    else if (frame_chars_.has(text[i]))
      ECHO(' ');
    else
      break;
  if (i < text.size()) {
    begin(CMT_TEXT);
    write_text(text.substr(i));
  }
  return scan_go_on;
}

int cpre_scan_base::comment_text() {
  write_text(token());
  return scan_go_on;
}

// Frame characters with text behind them are text; those at the end may be the line's tail.
void cpre_scan_base::write_text(std::string_view text) {
  std::size_t end = text.size();
  while (end > 0 && (is_blank(text[end - 1]) || frame_chars_.has(text[end - 1])))
    --end;
  std::size_t const tail = end + frame_chars_.find_in(text.substr(end));
  ECHO(text.substr(0, tail));
  if (tail < text.size()) {
    begin(CMT_FRAMETAIL);
    frame_run_ += text.substr(tail);
  }
}

int cpre_scan_base::frame_tail() {
  if (frame_chars_.has(token().front()))
    return hold_blanks();
  begin(CMT_TEXT);
  write_frame();
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
