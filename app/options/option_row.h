// What is known of one option. The trees, the limits, the readers, the manual's tables and the
// fields of the windows are made of such rows.
#pragma once

#include <climits>
#include <cstdint>
#include <span>
#include <string_view>

namespace Vapp {

enum class gOptionTree : std::uint8_t { project, settings };

enum class gOptionType : std::uint8_t {
  flag,
  number,
  numbers, // a list of eight
  text,
  texts,   // a list
  shipped, // a path; by default that of a file in the program's folder "ini"
  map      // a tree of its own, see option_schema
};

// Where the entry of an option comes from.
enum class gOptionOrigin : std::uint8_t {
  standard,  // each tree has it from the start
  completed, // made by the completion, so that a project keeps its own
  user,      // absent until somebody sets it; a reader gets the row's default
  run        // left in the tree by a run or a conversion
};

// What a text may hold. Each has its test in option_limits.h.
enum class gTextRule : std::uint8_t {
  any,
  frame_characters, // no blanks, letters and digits, each character once
  extensions,       // of file names, separated by semicolons
  report_numbers    // separated by commas
};

struct gLimits {
  int low = INT_MIN;
  int high = INT_MAX;
};

// One of the values that a window offers; numbers as text.
struct gChoice {
  std::string_view value;
  std::string_view label;
};

struct gOptionRow {
  std::string_view path; // keys with "/" between them
  gOptionType type;
  gOptionTree tree = gOptionTree::project;
  gOptionOrigin origin = gOptionOrigin::standard;
  gTextRule rule = gTextRule::any;
  gLimits limits = {};        // of a number, or of each in a list
  int number = 0;             // the default of a number, 1 for a flag that is on
  std::string_view text = {}; // the default of a text; the name of a shipped file
  std::span<int const> numbers = {};
  // A text has one of these values. With numbers they are names for some.
  std::span<gChoice const> choices = {};
  std::string_view label = {}; // of the field in a window; empty where there is none
  std::string_view help = {};  // one sentence without its full stop, in the manual's mark-up
};

} // namespace Vapp
