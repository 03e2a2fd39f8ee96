// Reports and the status line come from the worker, too: they only go to the queue.

#include "app/shell/window/frame_outside.h"

void gFrameOutside::title(gString const & text) {
  view_.set_title(text);
}

void gFrameOutside::status(gString const & text) {
  frame_.queue().status(text);
}

void gFrameOutside::report(Msg::type type, gString const & line) {
  frame_.queue().line(type, line);
}

void gFrameOutside::take_report(gReport const & report, gString const &) {
  frame_.queue().report(report);
}

void gFrameOutside::log_line(Msg::type type, gString const & line) {
  frame_.queue().line(type, line);
}

void gFrameOutside::show_msgwindow(bool show) {
  frame_.queue().show(show);
}

void gFrameOutside::clear_msgwindow() {
  frame_.queue().clear();
}

bool gFrameOutside::open_file(gString const & path) {
  return frame_.open_file(path);
}

bool gFrameOutside::dialog(Dialog const & dialog) {
  if (dialog.name != "gVappHelp")
    return show_dialog(dialog);
  frame_.help().request(gHelp::Command::contents);
  return true;
}
