// State that the comment preprocessors share.
#include "ana/parser/pre_scan_base.h"

#include "app/options/options.h"

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
  spt_2star_ = Vapp::option_bool("ana/spt_2star", false);
  spt_3slash_ = Vapp::option_bool("ana/spt_3slash", false);
}

void gPreScanBase::write_close() {
  ECHO(std::string_view(close_text_));
  close_text_.clear();
}

void gPreScanBase::write_frame() {
  ECHO(std::string_view(frame_run_));
  frame_run_.clear();
}
