// The status line while a stage works.
#pragma once

#include <cstddef>

#include "vlb/gmessage.h"

// Puts the status line back to what it was.
class gStatusLine {
public:
  gStatusLine();
  ~gStatusLine();
  gStatusLine(gStatusLine const &) = delete;
  gStatusLine & operator=(gStatusLine const &) = delete;

private:
  gString before_;
};

// Shows "text N%". The line is set only when the number changes, since items can be many.
class gProgress {
public:
  gProgress(gMessage const & stage, std::size_t total) : text_(stage.text), total_(total) {}
  // One more item is done.
  void step();

private:
  gStatusLine restore_;
  std::string_view text_;
  std::size_t total_;
  std::size_t done_ = 0;
  int shown_ = -1;
};
