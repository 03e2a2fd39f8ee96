// What the rules of the Pascal comment preprocessor do. A comment is over when nothing in it is
// open any more; the two bracket pairs are counted apart, so that one doesn't close the other.
#include "ana/parser/pre/ppre_scan_base.h"

#include "ana/anadat/input_table.h"

#include <algorithm>

void ppre_scan_base::Nesting::enter(Delimiter delimiter) {
  if (delimiter == LINE)
    in_line_comment = true;
  else
    ++(delimiter == PAREN ? paren_depth : brace_depth);
}

// A closer without its opener is text.
void ppre_scan_base::Nesting::leave(Delimiter delimiter) {
  int & depth = delimiter == PAREN ? paren_depth : brace_depth;
  depth = std::max(depth - 1, 0);
}

ppre_scan_base::ppre_scan_base(int size)
    : gPreScanBase(size, {.line_head = CMT_LINEHEAD,
                          .frame_skip = CMT_FRAMESKIP,
                          .text = CMT_TEXT,
                          .frame_tail = CMT_FRAMETAIL,
                          .after = CMT_AFTER}) {
  load_options();
}

void ppre_scan_base::reset() {
  gPreScanBase::reset();
  nesting_ = head_ = Nesting();
}

void ppre_scan_base::load_options() {
  gPreScanBase::load_options();
  frame_chars_.assign(gInput->comments.pas_frame);
  line_chars_.assign(gInput->comments.pas_line);
}

int ppre_scan_base::begin_line() {
  head_ = nesting_;
  begin(CMT_LINEHEAD);
  return scan_go_on;
}

int ppre_scan_base::begin_comment(Delimiter delimiter) {
  nesting_.in_line_comment = false;
  nesting_.enter(delimiter);
  return begin_line();
}

int ppre_scan_base::open_comment(Delimiter delimiter, std::string_view mark) {
  ECHO(mark);
  return begin_comment(delimiter);
}

// The two special openers differ by the blanks between the words: the reader of text units tells
// by them which source pattern the comment asks for.
int ppre_scan_base::open_star_comment() {
  return open_comment(PAREN, spt_2star_ ? "@_vlbcom @_vlukwd " : "@_vlbcom ");
}

int ppre_scan_base::open_slash_comment() {
  return open_comment(LINE, spt_3slash_ ? "@_vlbcom  @_vlukwd " : "@_vlbcom ");
}

// Braces inside a comment stay, since the mark-up uses them too; the other delimiters become
// blanks, so that columns stay.
int ppre_scan_base::inner_opener(Delimiter delimiter) {
  nesting_.enter(delimiter);
  ECHO(delimiter == BRACE ? "{" : "  ");
  return scan_go_on;
}

int ppre_scan_base::inner_closer(Delimiter delimiter) {
  nesting_.leave(delimiter);
  if (nesting_.is_over())
    return close_comment();
  ECHO(delimiter == BRACE ? "}" : "  ");
  return scan_go_on;
}

int ppre_scan_base::held_opener(Delimiter delimiter) {
  nesting_.enter(delimiter);
  return hold();
}

int ppre_scan_base::held_closer(Delimiter delimiter) {
  nesting_.leave(delimiter);
  return nesting_.is_over() ? close_comment() : hold();
}

// The line end belongs to what follows if the comment is over.
int ppre_scan_base::line_end() {
  nesting_.in_line_comment = false;
  if (nesting_.is_over()) {
    back();
    return close_comment();
  }
  frame_run_.clear();
  begin_line();
  return echo();
}

// What the head has counted will be counted again.
void ppre_scan_base::give_head_back() {
  gPreScanBase::give_head_back();
  nesting_ = head_;
}

// A comment that follows directly is part of the one before: its opener becomes blanks.
int ppre_scan_base::next_comment(Delimiter delimiter) {
  write_frame();
  ECHO(delimiter == BRACE ? " " : "  ");
  return begin_comment(delimiter);
}

// An empty line ends the sequence of comments.
int ppre_scan_base::next_line() {
  return frame_run_.find('\n') == gString::npos ? hold() : after_comment();
}

int ppre_scan_base::after_comment() {
  begin(CODE);
  write_close();
  write_frame();
  back();
  return scan_go_on;
}
