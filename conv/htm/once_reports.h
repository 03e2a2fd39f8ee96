// Reports of pages that are made by themselves, each in its own list.
#pragma once

#include <set>
#include <string>
#include <utility>

#include "vlb/greport.h"

// Hands reports on. What is said of a file as a whole, several pages may find out: it is told once.
class gOnceReports : public gReportSink {
public:
  explicit gOnceReports(gReportSink & to) : to_(to) {}
  void take(gReport report) override {
    bool const whole_file = report.place.line < 0;
    if (!whole_file || told_.emplace(report.message, report.argument).second)
      to_.take(std::move(report));
  }

private:
  gReportSink & to_;
  std::set<std::pair<gMessage const *, std::string>> told_;
};
