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

  // Answers to questions in their order: "yes", "no", "cancel", or a path for a chooser; several
  // paths with "|" between them.
  std::deque<std::string> answers;
  // Everything shown: "box: text", "ask: text", "open: title of a chooser", "title: text", "beep".
  std::vector<std::string> shown;
  // What the last box, question, chooser and dialog were asked for.
  Icon last_icon = Icon::information;
  Question last_question;
  Choice last_choice;
  Dialog last_dialog;
  // Reports and lines of the log stream in their order.
  std::vector<std::string> reports;
  std::vector<std::string> log_lines;
  std::vector<std::string> statuses;
  // Shows dialogs, where a test has some; without it the answers do.
  std::function<bool(Dialog const &)> on_dialog;
  // Called on every status text; a test breaks the run from here.
  std::function<void(std::string const &)> on_status;

  void box(gString const & text, Icon icon) override;
  Answer ask(Question const & question) override;
  void beep() override;
  std::vector<gString> choose(Choice const & choice) override;
  using gOutside::dialog;
  bool dialog(Dialog const & dialog) override;
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
