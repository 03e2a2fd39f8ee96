// A list stamps its stage on what it takes; everything else about a report is told by its maker.
#include "vlb/greport.h"

#include <utility>

#include "vlb/gsrcfile.h"
#include "vlb/messages.h"

std::string_view stage_name(gRunStage stage) {
  switch (stage) {
  case gRunStage::script:
    return "script";
  case gRunStage::preprocess:
    return "preprocess";
  case gRunStage::text_units:
    return "text_units";
  case gRunStage::code:
    return "code";
  case gRunStage::associate:
    return "associate";
  case gRunStage::update:
    return "update";
  case gRunStage::check:
    return "check";
  case gRunStage::generate:
    return "generate";
  case gRunStage::convert:
    return "convert";
  case gRunStage::none:
    break;
  }
  return "";
}

gReportPlace::gReportPlace(gLoc const & loc) : path(loc.file().opath()), line(loc.line()) {}

gString gReportPlace::text() const {
  return line < 0 ? path : path + ":" + std::to_string(line);
}

void gReportList::take(gReport report) {
  if (report.stage == gRunStage::none)
    report.stage = stage_;
  if (reports_.size() >= capacity && overflow_)
    hand_on(*overflow_);
  if (reports_.size() < capacity)
    reports_.push_back(std::move(report));
  else
    ++left_out_;
}

void gReportList::hand_on(gReportSink & sink) {
  std::vector<gReport> const reports = std::exchange(reports_, {});
  std::size_t const left_out = std::exchange(left_out_, 0);
  for (gReport const & report : reports)
    sink.take(report);
  if (left_out > 0)
    sink.take({Msg::more_reports, std::to_string(left_out), {reports.back().place.path}, stage_});
}

void gReportList::clear() {
  reports_.clear();
  left_out_ = 0;
}
