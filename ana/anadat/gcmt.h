// A comment with no text unit in it; its text stays in the temporary file until it is needed.
#pragma once

#include "ana/anadat/gcodeelem.h"

class gCmt : public cShared {
public:
  // A last line below the first becomes the first.
  gCmt(gSrcFile const & file, int first_line, int last_line);

  gLoc loc() const { return {file_, first_line_}; }
  gSrcFile const & file() const { return file_; }
  int first_line() const { return first_line_; }
  int last_line() const { return last_line_; }

  // A rank below 1 counts as 1.
  void bind(cRef<gCodeElem> const & ce, int rank);
  cRef<gCodeElem> const & code_elem() const { return code_elem_; }
  int rank() const { return rank_; }

private:
  gSrcFile file_;
  int first_line_, last_line_;
  int rank_ = 0;
  cRef<gCodeElem> code_elem_;
};
