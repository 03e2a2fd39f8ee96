// The port to the outside for windows: boxes, choosers and dialogs. Reports and the status line go
// the way of the frame.
#pragma once

#include "app/shell/window/frame_outside.h"
#include "app/shell/window/vapp_frame.h"

class QWidget;

// The port in use as long as it lives.
class gQtOutside : public gFrameOutside {
public:
  // Boxes and choosers stand in front of the window that has the focus, or of `main_window`.
  gQtOutside(gVappFrame & frame, gFrameView & view, QWidget & main_window);
  ~gQtOutside() override;

  void box(gString const & text, Icon icon) override;
  Answer ask(Question const & question) override;
  void beep() override;
  std::vector<gString> choose(Choice const & choice) override;
  void wait_cursor(bool on) override;

protected:
  bool show_dialog(Dialog const & dialog) override;

private:
  QWidget * front() const;

  QWidget & main_window_;
  gOutside * before_;
};
