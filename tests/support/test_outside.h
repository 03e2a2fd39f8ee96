// A port for tests: answers from a list, and keeps what was shown.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "vlb/outside.h"

class TestOutside : public gOutside {
public:
  TestOutside();
  ~TestOutside() override;

  // Answers to questions in their order: "yes", "no", "cancel", or a path for a chooser.
  std::deque<std::string> answers;
  // Everything shown: "box: text", "ask: text", "title: text".
  std::vector<std::string> shown;
  // Reports and lines of the log stream in their order.
  std::vector<std::string> reports;
  std::vector<std::string> log_lines;
  std::vector<std::string> statuses;
  // Called on every status text; a test breaks the run from here.
  std::function<void(std::string const &)> on_status;

  void box(gString const & text, Icon icon) override;
  Answer ask_yes_no(gString const & text) override;
  Answer ask_yes_no_cancel(gString const & text) override;
  gString choose_open(gString const & title, gString const & filter, gString const & dir) override;
  gString choose_save(gString const & title, gString const & filter, gString const & ext,
                      gString const & dir) override;
  bool dialog(gString const & name) override;
  void title(gString const & text) override;
  void status(gString const & text) override;
  void report(Msg::type type, gString const & line) override;
  void log_line(Msg::type type, gString const & line) override;
  void show_msgwindow(bool show) override;
  void clear_msgwindow() override;

  // All reports, one a line.
  std::string report_text() const;

private:
  std::string next_answer();
  Answer answer();
  gOutside * before_;
};
