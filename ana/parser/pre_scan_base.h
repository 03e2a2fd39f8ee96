// What the comment preprocessors of the languages share: the comment that may still go on, and the
// frame around its lines.
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
  explicit gPreScanBase(int size) : gScanBase(size) {}

  // Prepares for the next file with the options as they are now.
  void reset() override;
  // Closes a comment that was over but might have gone on.
  int wrap() override;
  virtual void load_options();

protected:
  // Writes what is held back, which forgets it.
  void write_close();
  void write_frame();

  gString close_text_;   // "@_vlecom " once a comment is over and nothing has come behind it yet
  gString frame_run_;    // blanks and frame characters, neither written nor dropped yet
  gCharSet frame_chars_; // removed at both ends of a comment line
  gCharSet line_chars_;  // a line of nothing else is removed
  bool spt_2star_ = false;
  bool spt_3slash_ = false;
};
