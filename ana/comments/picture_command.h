// What stands behind the command of a picture.
#pragma once

#include <string_view>

struct gPictureCommand {
  std::string_view file;
  std::string_view shown; // the text below it, or that stands for it
  std::string_view width; // a length or share as style sheets have it; empty if none is said
  bool in_line = false;   // stands within a line
  bool elsewhere = false; // for other formats than pages alone
  std::size_t length = 0; // of all that was read
};

// "{inline} html file.png "text" width=10cm"; without quotes the rest of the line is the text,
// where that may be: `open_text`.
gPictureCommand picture_command(std::string_view rest, bool open_text);
// The same if it is a width, else nothing.
std::string_view picture_width(std::string_view text);
