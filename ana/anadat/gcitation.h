// A stretch of a source that texts can quote.
#pragma once

#include "vlb/gsrcfile.h"

class gCitation : public cShared {
public:
  enum State { complete = 0, end_of_file = 1, unread = 2 };

  gCitation(gSrcFile const & file, int first_line, int last_line);

  // Brings the text up to date from the user's file; safe to call again. Reports what can't be
  // read; the state tells the rest.
  void read();

  gString const & text() const { return text_; }
  State state() const { return state_; }
  gSrcFile const & file() const { return file_; }
  int first_line() const { return first_line_; }
  int last_line() const { return last_line_; }

private:
  gSrcFile file_;
  int first_line_, last_line_; // last_line_ included
  gString text_;
  State state_ = unread;
};
