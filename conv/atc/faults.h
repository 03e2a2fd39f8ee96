// Reports of damage in a file of the intermediate code.
#pragma once

#include <string>
#include <string_view>

#include "vlb/greport.h"

// Reports at lines of one file. What comes after the first faults of a unit is most often their
// echo, so a unit has a limit.
class gAtcFaults {
public:
  // `sink` isn't owned.
  gAtcFaults(std::string path, gReportSink & sink) : path_(std::move(path)), sink_(sink) {}

  void report(gMessage const & message, std::string_view argument, int line);
  void begin_unit() { left_ = per_unit; }

private:
  static constexpr int per_unit = 20;
  std::string path_;
  gReportSink & sink_;
  int left_ = per_unit;
};
