// Plain comments: a place and a binding.
#include "ana/anadat/gcmt.h"

#include <algorithm>

gCmt::gCmt(gSrcFile const & file, int first_line, int last_line)
    : file_(file),
      first_line_(first_line),
      last_line_(std::max(first_line, last_line)) {}

void gCmt::bind(cRef<gCodeElem> const & ce, int rank) {
  code_elem_ = ce;
  rank_ = std::max(rank, 1);
}
