// Percentages are rounded down; every stage that does all its items ends at 100.

#include "ana/progress.h"

#include "vlb/outside.h"

gStatusLine::gStatusLine() : before_(Vlb::GetStatus()) {}
gStatusLine::~gStatusLine() {
  Vlb::SetStatus(before_, true);
}

void gProgress::step() {
  ++done_;
  int const percent = static_cast<int>(done_ * 100 / (total_ > 0 ? total_ : 1));
  if (percent == shown_)
    return;
  shown_ = percent;
  Vlb::SetStatus(gString(text_) + " " + std::to_string(percent) + "%", true);
}
