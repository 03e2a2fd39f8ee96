// Shares equal pieces of text. Words repeat all the time in prose, and pieces are never changed in
// place, so a unit need not pay for a string of its own for each "the".
#pragma once

#include <array>
#include <memory>

#include "vlb/gstring.h"

// A table of fixed size that remembers the last text of each slot: no growth, no eviction policy.
class doc_text_pool {
public:
  // Lets all texts go: those of one file aren't shared with another, which may be read elsewhere.
  void clear() { texts_->fill(nullptr); }
  // A shared string equal to `text`.
  cRef<gString> get(std::string_view text);

private:
  static constexpr std::size_t slots = 2048;
  std::unique_ptr<std::array<cRef<gString>, slots>> texts_ =
      std::make_unique<std::array<cRef<gString>, slots>>();
};
