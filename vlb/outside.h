// The port to the outside: what the system shows and asks, without knowing a window.
#pragma once

#include "vlb/gmessage.h"

// The command line, the tests and the windows each have one of their own. All operations but
// status() and the two of the message window are called from the main thread only; those three
// are called from the worker too, and the implementation sees to that.
class gOutside {
public:
  enum class Icon { exclamation, question, stop, information };
  enum class Answer { yes, no, cancel };

  virtual ~gOutside() = default;

  // A message box with an OK button.
  virtual void box(gString const & text, Icon icon) = 0;
  virtual Answer ask_yes_no(gString const & text) = 0;
  virtual Answer ask_yes_no_cancel(gString const & text) = 0;
  // File choosers: the chosen path, empty when cancelled.
  virtual gString choose_open(gString const & title, gString const & filter,
                              gString const & dir) = 0;
  virtual gString choose_save(gString const & title, gString const & filter, gString const & ext,
                              gString const & dir) = 0;
  // Opens a dialog by the name of its class, such as "gDefineOutdir"; false when cancelled.
  virtual bool dialog(gString const & name) = 0;
  // The title of the main window.
  virtual void title(gString const & text) = 0;

  // The status line.
  virtual void status(gString const & text) = 0;
  // A report, without a line end; reports below the minimum level of the display never come here.
  virtual void report(Msg::type type, gString const & line) = 0;
  // Free text of the log stream, line by line; Msg::status for lines that only tell progress.
  virtual void log_line(Msg::type type, gString const & line) = 0;
  virtual void show_msgwindow(bool show) = 0;
  virtual void clear_msgwindow() = 0;
};

namespace Vlb {

// The port in use. There always is one: at the start it shows nothing, answers "no" to questions
// and cancels choosers.
gOutside & outside();
// Sets the port, null for the silent one; returns the one before. The caller keeps ownership.
gOutside * set_outside(gOutside * port);

// The status line. `now` is true where the line must be drawn at once.
void SetStatus(gString const & text, bool now);
gString GetStatus();

} // namespace Vlb

void show_msgwindow(bool show);
void clear_msgwindow();
