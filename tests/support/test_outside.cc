#include "support/test_outside.h"

TestOutside::TestOutside() : before_(Vlb::set_outside(this)) {}
TestOutside::~TestOutside() {
  Vlb::set_outside(before_);
}

std::string TestOutside::next_answer() {
  if (answers.empty())
    return "cancel";
  std::string const answer = answers.front();
  answers.pop_front();
  return answer;
}

gOutside::Answer TestOutside::answer() {
  std::string const word = next_answer();
  return word == "yes" ? Answer::yes : word == "no" ? Answer::no : Answer::cancel;
}

void TestOutside::box(gString const & text, Icon) {
  shown.push_back("box: " + text);
}

gOutside::Answer TestOutside::ask_yes_no(gString const & text) {
  shown.push_back("ask: " + text);
  return answer();
}

gOutside::Answer TestOutside::ask_yes_no_cancel(gString const & text) {
  return ask_yes_no(text);
}

gString TestOutside::choose_open(gString const & title, gString const &, gString const &) {
  shown.push_back("open: " + title);
  std::string const path = next_answer();
  return path == "cancel" ? "" : path;
}

gString TestOutside::choose_save(gString const & title, gString const & filter, gString const &,
                                 gString const & dir) {
  return choose_open(title, filter, dir);
}

bool TestOutside::dialog(gString const & name) {
  shown.push_back("dialog: " + name);
  return answer() == Answer::yes;
}

void TestOutside::title(gString const & text) {
  shown.push_back("title: " + text);
}

void TestOutside::status(gString const & text) {
  statuses.push_back(text);
  if (on_status)
    on_status(text);
}

void TestOutside::report(Msg::type, gString const & line) {
  reports.push_back(line);
}
void TestOutside::log_line(Msg::type, gString const & line) {
  log_lines.push_back(line);
}
void TestOutside::show_msgwindow(bool) {}
void TestOutside::clear_msgwindow() {}

std::string TestOutside::report_text() const {
  std::string all;
  for (std::string const & line : reports)
    all += line + "\n";
  return all;
}
