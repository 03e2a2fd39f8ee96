#include "support/test_outside.h"

#include <algorithm>

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

void TestOutside::box(gString const & text, Icon icon) {
  shown.push_back("box: " + text);
  last_icon = icon;
}

gOutside::Answer TestOutside::ask(Question const & question) {
  shown.push_back("ask: " + question.text);
  last_question = question;
  return answer();
}

void TestOutside::beep() {
  shown.push_back("beep");
}

std::vector<gString> TestOutside::choose(Choice const & choice) {
  shown.push_back("open: " + choice.title);
  last_choice = choice;
  std::string const paths = next_answer();
  std::vector<gString> chosen;
  for (std::size_t from = 0; paths != "cancel" && from <= paths.size();) {
    std::size_t const to = std::min(paths.find('|', from), paths.size());
    chosen.push_back(paths.substr(from, to - from));
    from = to + 1;
  }
  return chosen;
}

bool TestOutside::dialog(Dialog const & dialog) {
  shown.push_back("dialog: " + dialog.name);
  last_dialog = dialog;
  return on_dialog ? on_dialog(dialog) : answer() == Answer::yes;
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
