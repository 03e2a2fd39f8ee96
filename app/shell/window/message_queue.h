// What runs tell on their way to the window's thread.
#pragma once

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "vlb/greport.h"

// A line of the message window as a value.
struct gMessageRow {
  Msg::type severity = Msg::all; // Msg::all for free text
  int number = 0;                // 0 without one
  bool is_report = false;        // else free text of the log
  bool bare = false;             // a report without prefix word and number in the log
  std::string text = {};         // without prefix word, number and place
  gReportPlace place = {};
};

// Any thread may add; the thread of the window takes all at once, some twenty times a second. What
// nobody takes doesn't grow beyond the capacity: later lines are only counted then.
class gMessageQueue {
public:
  static constexpr std::size_t capacity = 500000;

  struct Batch {
    bool clear = false; // what the window shows goes first
    std::vector<gMessageRow> rows;
    std::size_t left_out = 0;          // behind the rows
    std::optional<std::string> status; // the last one
    std::optional<bool> show;          // the message window was asked for or sent away
    bool empty() const { return !clear && rows.empty() && left_out == 0 && !status && !show; }
  };

  // `wake` is called, on the adding thread, when the queue stops being empty; may be null.
  explicit gMessageQueue(std::function<void()> wake = {}) : wake_(std::move(wake)) {}

  void report(gReport const & report);
  void line(Msg::type type, std::string_view text);
  void status(std::string_view text);
  void show(bool show);
  void clear();

  Batch take();

private:
  template <class Change> void change(Change const & change);
  void add(gMessageRow row);

  std::function<void()> wake_;
  std::mutex lock_;
  Batch batch_;
};
