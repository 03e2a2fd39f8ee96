// Reports of damage in a file of the intermediate code.
#pragma once

#include <string>
#include <string_view>

#include "vlb/gmessage.h"

// Reports at lines of one file. What comes after the first faults of a unit is most often their
// echo, so a unit has a limit.
class gAtcFaults {
public:
  explicit gAtcFaults(std::string path) : path_(std::move(path)) {}

  void report(gMessage const & message, std::string_view argument, int line);
  void begin_unit() { left_ = per_unit; }

private:
  static constexpr int per_unit = 20;
  std::string path_;
  int left_ = per_unit;
};
