// A report as a value: what is reported, of what, where, and at which step of a run. It can be kept
// and printed later, and handed from one thread to another.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "vlb/gmessage.h"

class gLoc;

// The steps of a run that can report.
enum class gRunStage : unsigned char {
  none, // outside of a run, or not told
  script,
  preprocess,
  text_units,
  code,
  associate,
  update,
  check,
  generate,
  convert
};

// The word for a stage in data, such as "text_units"; empty for none.
std::string_view stage_name(gRunStage stage);

// A file and a line of it. A text of its own, not a gSrcFile: copies of that share a record, which
// two threads must not do.
struct gReportPlace {
  static constexpr int no_line = -1;

  gReportPlace() = default;
  gReportPlace(std::string path, int line = no_line) : path(std::move(path)), line(line) {}
  gReportPlace(char const * path) : path(path) {}
  gReportPlace(gLoc const & loc);

  bool empty() const { return path.empty() && line < 0; }
  // "path:line", or the path alone for a file as a whole.
  gString text() const;

  std::string path; // as the user knows it
  int line = no_line;
};

struct gReport {
  gReport(gMessage const & message, std::string argument = {}, gReportPlace place = {},
          gRunStage stage = gRunStage::none)
      : message(&message),
        argument(std::move(argument)),
        place(std::move(place)),
        stage(stage) {}

  gMessage const * message; // a row of the catalogue; never null
  std::string argument;     // completes the row's text; may hold any bytes
  gReportPlace place;
  gRunStage stage;
};

// Where reports go: the log, or a list that is printed later.
class gReportSink {
public:
  virtual ~gReportSink() = default;
  // May raise gExcFatalErr where a limit of errors ends the run.
  virtual void take(gReport report) = 0;
  void operator()(gMessage const & message, std::string const & argument = {},
                  gReportPlace const & place = {}) {
    take({message, argument, place});
  }
};

// The reports of one file, in their order. Nothing is counted or shown until they are handed on.
class gReportList : public gReportSink {
public:
  // The most reports that are kept: a file of random bytes must not fill the memory.
  static constexpr std::size_t capacity = 100000;

  // `overflow`: gets everything when the list is full; without one, what comes later is left out,
  // and one last report tells how much.
  explicit gReportList(gRunStage stage = gRunStage::none, gReportSink * overflow = nullptr)
      : overflow_(overflow),
        stage_(stage) {}

  void take(gReport report) override;
  // Empties the list into `sink`. What a raised gExcFatalErr leaves over is dropped.
  void hand_on(gReportSink & sink);
  void clear();

  bool empty() const { return reports_.empty(); }
  std::vector<gReport> const & reports() const { return reports_; }
  // Reports that found no room.
  std::size_t left_out() const { return left_out_; }

private:
  std::vector<gReport> reports_;
  std::size_t left_out_ = 0;
  gReportSink * overflow_;
  gRunStage stage_;
};
