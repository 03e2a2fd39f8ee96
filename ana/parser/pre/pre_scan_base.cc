// The lines of comments: what of them is frame, what is text.
#include "ana/parser/pre/pre_scan_base.h"

#include "ana/anadat/input_table.h"

namespace {

bool is_blank(char c) {
  return c == ' ' || c == '\t';
}

} // namespace

void gCharSet::assign(std::string_view characters) {
  members_.fill(false);
  for (unsigned char c : characters)
    members_[c] = true;
}

std::size_t gCharSet::find_in(std::string_view text) const {
  std::size_t i = 0;
  while (i < text.size() && !has(text[i]))
    ++i;
  return i;
}

void gPreScanBase::reset() {
  gScanBase::reset();
  load_options();
  close_text_.clear();
  frame_run_.clear();
}

int gPreScanBase::wrap() {
  write_close();
  write_frame();
  return 1;
}

void gPreScanBase::load_options() {
  spt_2star_ = gInput->comments.two_stars;
  spt_3slash_ = gInput->comments.three_slashes;
}

int gPreScanBase::echo() {
  ECHO(token());
  return scan_go_on;
}

int gPreScanBase::hold() {
  frame_run_ += token();
  return scan_go_on;
}

// Blanks and characters that may be decoration, up to the first that can't.
int gPreScanBase::line_head() {
  for (char c : token())
    if (!is_blank(c) && !line_chars_.has(c)) {
      give_head_back();
      return scan_go_on;
    }
  return hold();
}

void gPreScanBase::give_head_back() {
  begin(conditions_.frame_skip);
  back();
  if (!frame_run_.empty())
    push_back(frame_run_);
  frame_run_.clear();
}

// Frame characters become blanks, so that columns stay.
int gPreScanBase::skip_frame() {
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
    begin(conditions_.text);
    write_text(text.substr(i));
  }
  return scan_go_on;
}

int gPreScanBase::comment_text() {
  write_text(token());
  return scan_go_on;
}

// Frame characters with text behind them are text; those at the end may be the line's tail.
void gPreScanBase::write_text(std::string_view text) {
  std::size_t end = text.size();
  while (end > 0 && (is_blank(text[end - 1]) || frame_chars_.has(text[end - 1])))
    --end;
  std::size_t const tail = end + frame_chars_.find_in(text.substr(end));
  ECHO(text.substr(0, tail));
  if (tail < text.size()) {
    begin(conditions_.frame_tail);
    frame_run_ += text.substr(tail);
  }
}

int gPreScanBase::frame_tail() {
  if (frame_chars_.has(token().front()))
    return hold();
  begin(conditions_.text);
  write_frame();
  return echo();
}

int gPreScanBase::close_comment() {
  begin(conditions_.after);
  close_text_ = "@_vlecom ";
  frame_run_.clear();
  return scan_go_on;
}

void gPreScanBase::write_close() {
  ECHO(std::string_view(close_text_));
  close_text_.clear();
}

void gPreScanBase::write_frame() {
  ECHO(std::string_view(frame_run_));
  frame_run_.clear();
}
