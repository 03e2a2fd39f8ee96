// The texts of comments, from the temporary files.
#pragma once

#include "ana/anadat/gcmt.h"

// Reads each file once as long as its comments are asked for together and in ascending order.
class gCommentReader {
public:
  // The comment's text without its marks, with the white space trimmed. False if there is none; a
  // file that can't be read is reported.
  bool read(gCmt const & comment, gString & text);

private:
  bool open(gPathstring const & path);
  // Moves to the beginning of a line, or to the end of the file.
  void go_to_line(int line);

  gPathstring path_;
  std::string text_;
  bool readable_ = false;
  int line_ = 1; // the line that begins at start_
  std::size_t start_ = 0;
};
