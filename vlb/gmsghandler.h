// The one sink for reports: counts, filters and writes them.
#pragma once

#include <atomic>
#include <list>
#include <memory>
#include <set>
#include <sstream>

#include "vlb/gpathstring.h"
#include "vlb/greport.h"

class gLogLines;

// Free text on its way to the log; handed over as a whole at the end of the statement.
class gLogText : public std::ostringstream {
public:
  gLogText(gLogLines & lines, Msg::type type);
  gLogText(gLogText const &) = delete;
  ~gLogText() override;

private:
  gLogLines & lines_;
  Msg::type type_;
};

// An output stream that writes free text to the message window and to the open log file.
class gLogStream {
public:
  gLogStream();
  virtual ~gLogStream();
  gLogStream(gLogStream const &) = delete;
  gLogStream & operator=(gLogStream const &) = delete;

  // The stream for free text; lines are ended with endl. What isn't ended waits for more.
  gLogText operator()();
  // The same, at a stated severity (and so subject to the minimum levels).
  gLogText operator()(Msg::type type);
  // The local date and time, "%m/%d/%Y %H:%M:%S".
  void put_time();

protected:
  std::unique_ptr<gLogLines> lines_;
};

// What a run has reported about one place.
struct gErrTag {
  Msg::type type;
  gString text;
  gString where;
};

struct gErrTagList : std::list<gErrTag> {
  iterator cursor = end();
  void reset() {
    clear();
    cursor = end();
  }
};

// Shared by the whole program, and by all its threads: each call is whole. The thread that called
// reset_counts() or continue_run() last is the one of the run, and only its reports are counted:
// what the main thread reports meanwhile is shown, and nothing else. A report never fails towards
// its caller, except that the one which reaches err_max raises gExcFatalErr.
class gMsgHandler : public gLogStream, public gReportSink {
public:
  gMsgHandler();
  ~gMsgHandler() override;

  using gLogStream::operator();
  using gReportSink::operator();
  // Writes the report as a line, see Vlb::report_line.
  void take(gReport report) override;

  void minlvl_disp(Msg::type type);
  void minlvl_file(Msg::type type);
  // False if the file can't be made.
  bool open_logfile(gString const & path);
  // False if something couldn't be written.
  bool close_logfile();
  // Begins a new run with no number switched off.
  void reset_suppressed();
  // Switches numbers off: their reports and the hints behind them are neither written nor counted.
  void suppress(std::set<int> const & numbers);
  // Begins a run on this thread.
  void reset_counts();
  // The run goes on on this thread.
  void continue_run();
  // What the run is at: the stage of its reports that don't tell one.
  void stage(gRunStage stage);
  // A second taker of the run's reports, whatever their severity; null for none. Not owned. It is
  // called with the lock held, so it must not report.
  void copy_to(gReportSink * sink);
  // "N error(s), M warning(s)".
  virtual void put_summary();

  int errors() const;
  int warnings() const;
  // The highest severity among the counted reports (warnings and errors) since reset_counts();
  // Msg::all if there was none.
  Msg::type worst() const;

  // The line of the last error that tells what it is about; empty if there was none.
  std::string last_error() const;

  // True from the report that raised gExcFatalErr for err_max on, until reset_counts(): that error
  // ends the run, so a guard that would go on with the next file passes it on.
  bool limit_reached() const;

  std::atomic<int> err_max = 0; // maximum number of errors; 0 for no limit

private:
  struct Run;
  bool enter(gReport & report, gString const & line);
  bool suppressed(gReport const & report);
  void count(gMessage const & message);

  std::unique_ptr<Run> run_;
};

namespace Vlb {
// Appends text that may hold anything, such as a file's name. A control character would break or
// cut the line, or steer the terminal that shows it.
void add_shown(gString & line, std::string_view text);

// The line of a report in the log: prefix word, a blank and the number if it isn't 0, ": ", text,
// argument, and " (place)" if there is one that the argument doesn't name already; hints have their
// four blanks and the text. Control characters of argument and place are written as "\n", "\0" or
// "\x1b"; a tab stays.
gString report_line(gReport const & report);
// Parts of it: text and argument, and what stands in front of them.
gString report_text(gReport const & report);
gString report_head(Msg::type severity, int number);
} // namespace Vlb

namespace Msg {
extern gMsgHandler log;
gErrTagList & cur_errtaglist();

// "INTERNAL ERROR: Please send ...", file(line), the diagnostic and the value: for a value of an
// enumeration that can't occur. No exception, no count.
void internal_diagnostic(char const * file, int line, char const * diagnostic, long value);
} // namespace Msg

#define VLB_UNEXPECTED(diagnostic, value)                                                          \
  Msg::internal_diagnostic(__FILE__, __LINE__, diagnostic, static_cast<long>(value))
