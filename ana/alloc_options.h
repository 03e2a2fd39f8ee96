// The options of the association, as plain values.
#pragma once

#include <array>

// Where a text for a code element is looked for.
enum gLocType : int {
  comment_before = 1,
  comment_after = 2,
  unnamed_before = 3,
  unnamed_after = 4,
  named_before = 5,
  named_after = 6,
  other_file = 7,
  other_folder = 8,
};

struct gAllocOptions {
  std::array<int, 8> order{}; // the methods in the sequence of trial
  std::array<int, 8> prio{};  // the rank of the method at the same position; 0 switches it off
  int gen_unit = 0;           // unit types for which a unit is generated from code alone
  bool gen_private = false;
  bool gen_static = false;
  bool gen_extern = false;

  static gAllocOptions read();
};
