// The port of boxes and reports, as far as it needs no window system.
#pragma once

#include "app/shell/window/vapp_frame.h"

// Reports and the status line go to the queue of the frame, help and pages to the browser. Boxes,
// choosers and dialogs are left to the window.
class gFrameOutside : public gOutside {
public:
  gFrameOutside(gVappFrame & frame, gFrameView & view) : frame_(frame), view_(view) {}

  void title(gString const & text) override;
  void status(gString const & text) override;
  void report(Msg::type type, gString const & line) override;
  void take_report(gReport const & report, gString const & line) override;
  void log_line(Msg::type type, gString const & line) override;
  void show_msgwindow(bool show) override;
  void clear_msgwindow() override;
  bool open_file(gString const & path) override;
  // Shows the help itself, and leaves all other dialogs to the window.
  using gOutside::dialog;
  bool dialog(Dialog const & dialog) override;

protected:
  virtual bool show_dialog(Dialog const & dialog) = 0;

private:
  gVappFrame & frame_;
  gFrameView & view_;
};
