// The rows are made by the thread that tells them, so that the window has nothing left to do.

#include "app/shell/window/message_queue.h"

#include <utility>

#include "vlb/gmsghandler.h"

template <class Change> void gMessageQueue::change(Change const & change) {
  bool was_empty = false;
  {
    std::scoped_lock const guard(lock_);
    was_empty = batch_.empty();
    change();
  }
  if (was_empty && wake_)
    wake_();
}

void gMessageQueue::add(gMessageRow row) {
  change([&] {
    if (batch_.rows.size() < capacity)
      batch_.rows.push_back(std::move(row));
    else
      ++batch_.left_out;
  });
}

void gMessageQueue::report(gReport const & report) {
  gMessage const & message = *report.message;
  add({.severity = message.severity,
       .number = message.number,
       .is_report = true,
       .bare = message.form == gMessage::Form::bare,
       .text = Vlb::report_text(report),
       .place = report.place});
}

void gMessageQueue::line(Msg::type type, std::string_view text) {
  add({.severity = type, .text = std::string(text)});
}

void gMessageQueue::status(std::string_view text) {
  change([&] { batch_.status = text; });
}

void gMessageQueue::show(bool show) {
  change([&] { batch_.show = show; });
}

void gMessageQueue::clear() {
  change([&] {
    batch_.clear = true;
    batch_.rows.clear();
    batch_.left_out = 0;
  });
}

gMessageQueue::Batch gMessageQueue::take() {
  std::scoped_lock const guard(lock_);
  return std::exchange(batch_, Batch());
}
