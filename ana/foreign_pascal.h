// As much of Pascal as tells where code stands that declares nothing new.
#pragma once

#include <string_view>

#include "ana/foreign_code.h"

class gForeignPascal {
public:
  // Reads on up to `end`; comments are left out.
  void read(std::string_view text, std::size_t begin, std::size_t end);

  bool in_body() const { return depth_ > 0; }
  bool in_implementation() const { return implementation_.begin > 0; }
  // From behind "implementation" to the end of the unit; without an end where that is missing.
  gForeignCode::Hidden const & implementation() const { return implementation_; }

private:
  void take_word(std::string_view text, std::size_t begin, std::size_t end);

  std::size_t depth_ = 0; // of blocks
  gForeignCode::Hidden implementation_;
};
