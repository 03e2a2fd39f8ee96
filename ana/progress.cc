// Percentages are rounded down; every stage that does all its items ends at 100.

#include "ana/progress.h"

#include <new>

#include "vlb/outside.h"

gStatusLine::gStatusLine() : before_(Vlb::GetStatus()) {}
gStatusLine::~gStatusLine() {
  try {
    Vlb::SetStatus(before_, true);
  } catch (std::bad_alloc const &) {
    // The next stage sets its own.
  }
}

void gProgress::step() {
  ++done_;
  int const percent = static_cast<int>(done_ * 100 / (total_ > 0 ? total_ : 1));
  if (percent == shown_)
    return;
  shown_ = percent;
  Vlb::SetStatus(gString(text_) + " " + std::to_string(percent) + "%", true);
}
