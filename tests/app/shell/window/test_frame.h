// A frame over a window and a desktop that only remember what they were told.
#pragma once

#include <set>

#include "app/shell/window/frame_outside.h"
#include "support/test_outside.h"

class TestView : public gFrameView {
public:
  bool can_be_created = true;
  std::vector<gRect> all_screens = {{0, 0, 1000, 800}};
  gRect where;
  std::string calls; // in their order, each behind a blank
  std::string title;

  bool create() override {
    calls += " create";
    return can_be_created;
  }
  std::vector<gRect> screens() override { return all_screens; }
  gRect place() override { return where; }
  void set_place(gRect const & place) override {
    calls += " place";
    where = place;
  }
  void show() override { calls += " show"; }
  void close() override { calls += " close"; }
  void set_title(std::string const & text) override { title = text; }
  void update_menu() override { calls += " menu"; }
  void show_tool_bar(bool show) override { calls += show ? " tools+" : " tools-"; }
  void show_status_bar(bool show) override { calls += show ? " status+" : " status-"; }
  void show_messages(bool show) override { calls += show ? " messages+" : " messages-"; }
  void update_messages(bool cleared) override { calls += cleared ? " cleared" : " lines"; }
  void update_progress() override { calls += " progress"; }

  std::string take_calls() { return std::exchange(calls, ""); }
};

class TestDesktop : public gDesktop {
public:
  std::set<std::string> programs = {"browser"};
  std::string association = "browser \"%1\"";
  std::vector<std::string> started; // the arguments with "|" between them

  bool start(std::vector<std::string> const & command) override {
    if (command.empty() || !has_program(command.front()))
      return false;
    std::string line;
    for (std::string const & argument : command)
      line += (line.empty() ? "" : "|") + argument;
    started.push_back(line);
    return true;
  }
  bool has_program(std::string const & name) override { return programs.contains(name); }
  std::string shell_command(std::string const &, std::string const &) override {
    return association;
  }
};

// Boxes, choosers and dialogs are answered by the test, all else takes the way of the window.
class TestFrameOutside : public gFrameOutside {
public:
  TestFrameOutside(gVappFrame & frame, gFrameView & view)
      : gFrameOutside(frame, view),
        before_(Vlb::set_outside(this)) {}
  ~TestFrameOutside() override { Vlb::set_outside(before_); }

  void box(gString const & text, Icon icon) override { user_.box(text, icon); }
  Answer ask(Question const & question) override { return user_.ask(question); }
  std::vector<gString> choose(Choice const & choice) override { return user_.choose(choice); }

  TestOutside & user() { return user_; }

protected:
  bool show_dialog(Dialog const & dialog) override { return user_.dialog(dialog); }

private:
  TestOutside user_;
  gOutside * before_;
};
