// The port for a terminal, or for a program that reads standard error.
#pragma once

#include <mutex>

#include "vlb/outside.h"

// A line of a run as it is shown to who isn't quiet.
struct gShownLine {
  bool is_report;
  gString text;
};

// Reports go to standard error, one a line. Where that is a terminal, the status line is redrawn
// in place and gone at the end; elsewhere no control characters are written. Questions are only
// asked where someone can answer; otherwise the answer is the one that changes nothing.
class gCliOutside : public gOutside {
public:
  gCliOutside();
  ~gCliOutside() override;

  // No reports; refusals are still told.
  void set_quiet(bool quiet) { quiet_ = quiet; }
  // Of reports that begin so, a run shows no more than this; tell_omitted() says how many it had.
  void set_limit(std::string beginning, std::size_t most);
  void tell_omitted();
  // Notes the lines of a run from now on; null ends that. Not owned. False at the end if there was
  // no memory for all of them.
  bool keep_lines(std::vector<gShownLine> * lines);
  // A line that a run has shown.
  void show(gShownLine const & line);
  // True if a question can be asked.
  static bool interactive();
  // A line of the command itself, such as why it refuses.
  void tell(std::string const & text);

  void box(gString const & text, Icon icon) override;
  Answer ask(Question const & question) override;
  std::vector<gString> choose(Choice const & choice) override;
  using gOutside::dialog;
  bool dialog(Dialog const & dialog) override;
  void title(gString const & text) override;

  void status(gString const & text) override;
  void report(Msg::type type, gString const & line) override;
  void log_line(Msg::type type, gString const & line) override;
  void show_msgwindow(bool show) override;
  void clear_msgwindow() override;

private:
  void print_line(std::string_view line);
  std::string erasure() const;
  std::string drawing() const;

  gOutside * before_;
  std::mutex mutex_; // status and reports come from the worker
  gString status_;
  bool terminal_;
  bool quiet_ = false;
  std::vector<gShownLine> * kept_ = nullptr;
  bool kept_all_ = true;
  std::string limited_; // the beginning of reports that are counted
  std::size_t most_ = 0, counted_ = 0;
};
