// The one sink for reports: counts, filters and writes them.
#pragma once

#include <list>
#include <memory>
#include <ostream>
#include <set>

#include "vlb/gmessage.h"
#include "vlb/gpathstring.h"

// An output stream that writes free text to the message window and to the open log file.
class gLogStream {
public:
  gLogStream();
  virtual ~gLogStream();
  gLogStream(gLogStream const &) = delete;
  gLogStream & operator=(gLogStream const &) = delete;

  // The stream for free text; lines are ended with endl.
  std::ostream & operator()();
  // The same, at a stated severity (and so subject to the minimum levels).
  std::ostream & operator()(Msg::type type);
  // The local date and time, "%m/%d/%Y %H:%M:%S".
  void put_time();

protected:
  class Buffer;
  std::unique_ptr<Buffer> buffer_;
  std::unique_ptr<std::ostream> stream_;
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

// Shared by the whole program; used by one thread at a time. A report never fails towards its
// caller, except that the one which reaches err_max raises gExcFatalErr.
class gMsgHandler : public gLogStream {
public:
  gMsgHandler();
  ~gMsgHandler() override;

  using gLogStream::operator();
  // Line form: prefix word, a blank and the number if it isn't 0, ": ", text, argument, and
  // " (where)" if there is a position; hints have their four blanks and the text. Control
  // characters of argument and position are written as "\n", "\0" or "\x1b"; a tab stays.
  void operator()(gMessage const & message, gString const & argument = gString(),
                  gString const & where = gString());

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
  void reset_counts();
  // "N error(s), M warning(s)".
  virtual void put_summary();

  int errors() const { return errors_; }
  int warnings() const { return warnings_; }
  // The highest severity among the counted reports (warnings and errors) since reset_counts();
  // Msg::all if there was none.
  Msg::type worst() const { return worst_; }

  // True from the report that raised gExcFatalErr for err_max on, until reset_counts(): that error
  // ends the run, so a guard that would go on with the next file passes it on.
  bool limit_reached() const { return limit_reached_; }

  int err_max = 0; // maximum number of errors; 0 for no limit

private:
  bool suppressed(gMessage const & message);

  int errors_ = 0;
  int warnings_ = 0;
  Msg::type worst_ = Msg::all;
  bool limit_reached_ = false;
  std::set<int> suppressed_numbers_;
};

namespace Vlb {
// Appends text that may hold anything, such as a file's name. A control character would break or
// cut the line, or steer the terminal that shows it.
void add_shown(gString & line, std::string_view text);
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
