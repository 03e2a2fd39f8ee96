// What the comment preprocessors of the languages share: the comment that may still go on, and the
// frame around its lines. A comment line passes through three conditions: its head is held back in
// case the whole line is decoration, then frame characters become blanks, then its text is copied,
// with frame characters held back in case the line ends.
#pragma once

#include <array>

#include "vlb/parse/scan_base.h"

// A set of characters, as an option writes it down.
class gCharSet {
public:
  void assign(std::string_view characters);
  bool has(char c) const { return members_[static_cast<unsigned char>(c)]; }
  // Position of the first member in `text`; its length if there is none.
  std::size_t find_in(std::string_view text) const;

private:
  std::array<bool, 256> members_{};
};

class gPreScanBase : public gScanBase {
public:
  // The numbers that a language gives to the conditions of comments.
  struct Conditions {
    int line_head;  // is the whole line decoration?
    int frame_skip; // behind that, removing frame characters
    int text;       // behind the frame
    int frame_tail; // in a run of frame characters that may be the line's tail
    int after;      // behind a comment's end, with close_text_ held back
  };
  gPreScanBase(int size, Conditions const & conditions)
      : gScanBase(size),
        conditions_(conditions) {}

  // Prepares for the next file with the options as they are now.
  void reset() override;
  // Closes a comment that was over but might have gone on.
  int wrap() override;
  virtual void load_options();

  // What the rules call.
  int echo();
  int hold();
  int line_head();
  int skip_frame();
  int comment_text();
  int frame_tail();

protected:
  // The comment is over unless another one follows directly.
  int close_comment();
  // The line has text: its head will be read again, as a frame to be removed.
  virtual void give_head_back();
  // Writes what is held back, which forgets it.
  void write_close();
  void write_frame();

  gString close_text_;   // "@_vlecom " once a comment is over and nothing has come behind it yet
  gString frame_run_;    // blanks and frame characters, neither written nor dropped yet
  gCharSet frame_chars_; // removed at both ends of a comment line
  gCharSet line_chars_;  // a line of nothing else is removed
  bool spt_2star_ = false;
  bool spt_3slash_ = false;

private:
  void write_text(std::string_view text);

  Conditions const conditions_;
};
