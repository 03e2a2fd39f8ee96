// The port in use, and the status line in front of it.
#include "vlb/outside.h"

#include <atomic>
#include <mutex>

namespace {

class Silent : public gOutside {
public:
  void box(gString const &, Icon) override {}
  Answer ask(Question const &) override { return Answer::no; }
  std::vector<gString> choose(Choice const &) override { return {}; }
  bool dialog(Dialog const &) override { return false; }
  void title(gString const &) override {}
  void status(gString const &) override {}
  void report(Msg::type, gString const &) override {}
  void log_line(Msg::type, gString const &) override {}
  void show_msgwindow(bool) override {}
  void clear_msgwindow() override {}
};

// Null stands for the silent port.
std::atomic<gOutside *> port_in_use = nullptr;

// Both the main thread and a worker use the line.
struct StatusLine {
  std::mutex lock;
  gString text;
};

StatusLine & status_line() {
  static StatusLine line;
  return line;
}

} // namespace

gString gOutside::choose_one(Choice const & choice) {
  std::vector<gString> const chosen = this->choose(choice);
  return chosen.empty() ? gString() : chosen.front();
}

gWaitCursor::gWaitCursor() {
  Vlb::outside().wait_cursor(true);
}
gWaitCursor::~gWaitCursor() {
  Vlb::outside().wait_cursor(false);
}

void gOutside::take_report(gReport const & report, gString const & line) {
  this->report(report.message->severity, line);
}

namespace Vlb {

gOutside & outside() {
  // Never destroyed: the sink may write its last line when the process ends.
  static gOutside & silent = *new Silent;
  gOutside * const port = port_in_use;
  return port ? *port : silent;
}

gOutside * set_outside(gOutside * port) {
  return port_in_use.exchange(port);
}

void SetStatus(gString const & text, bool) {
  {
    std::scoped_lock const guard(status_line().lock);
    status_line().text = text;
  }
  outside().status(text);
}

gString GetStatus() {
  std::scoped_lock const guard(status_line().lock);
  return status_line().text;
}

} // namespace Vlb

void show_msgwindow(bool show) {
  Vlb::outside().show_msgwindow(show);
}

void clear_msgwindow() {
  Vlb::outside().clear_msgwindow();
}
