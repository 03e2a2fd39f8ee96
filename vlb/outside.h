// The port to the outside: what the system shows and asks, without knowing a window.
#pragma once

#include <functional>
#include <vector>

#include "vlb/greport.h"

// The command line, the tests and the windows each have one of their own. All operations but
// status() and the two of the message window are called from the main thread only; those three
// are called from the worker too, and the implementation sees to that.
class gOutside {
public:
  enum class Icon { exclamation, question, stop, information };
  enum class Answer { yes, no, cancel };

  // A box with two answers, or three with `cancel`. Closing it any other way is `cancel` where it
  // is offered, else `no`.
  struct Question {
    gString text;
    Icon icon = Icon::question; // exclamation for what costs data
    bool cancel = false;
    Answer standard = Answer::yes; // what the return key gives
  };

  // What a file chooser is asked for.
  struct Choice {
    enum class Kind { open, save, folder };
    Kind kind = Kind::open;
    gString title;
    gString filter = {};  // pairs of a label and patterns with ";" between them, each ended by "|"
    gString dir = {};     // where it begins; empty: wherever the user was last
    gString name = {};    // the name offered, without its folder
    gString ext = {};     // added to a typed name that has none; without a point
    bool several = false; // of `open`: more than one file may be chosen
    // Of `save`: whoever asks for the path has a question of its own for a file that exists.
    bool caller_confirms = false;
  };

  // A dialog by the name of its class, such as "gDefineOutdir".
  struct Dialog {
    gString name;
    int page = 0; // of a sheet; the first one if there is no such page
    bool modeless = false;
    std::function<void()> closed = {}; // called when a modeless one is gone
  };

  virtual ~gOutside() = default;

  // A message box with an OK button.
  virtual void box(gString const & text, Icon icon) = 0;
  virtual Answer ask(Question const & question) = 0;
  Answer ask_yes_no(gString const & text) { return ask({text}); }
  Answer ask_yes_no_cancel(gString const & text) { return ask({text, Icon::question, true}); }
  virtual void beep() {}

  // The chosen paths; none when cancelled.
  virtual std::vector<gString> choose(Choice const & choice) = 0;
  // A single path; empty when cancelled.
  gString choose_one(Choice const & choice);
  gString choose_open(gString const & title, gString const & filter, gString const & dir) {
    return choose_one({Choice::Kind::open, title, filter, dir});
  }
  gString choose_save(gString const & title, gString const & filter, gString const & ext,
                      gString const & dir) {
    return choose_one({Choice::Kind::save, title, filter, dir, {}, ext});
  }
  gString choose_folder(gString const & title, gString const & dir) {
    return choose_one({Choice::Kind::folder, title, {}, dir});
  }

  // Shows a dialog. A modal one: false when cancelled. A modeless one: false if it can't be shown,
  // else the call returns at once.
  virtual bool dialog(Dialog const & dialog) = 0;
  bool dialog(gString const & name) { return dialog(Dialog{name}); }

  // The pointer tells that something takes its time; calls nest.
  virtual void wait_cursor(bool) {}
  // The title of the main window.
  virtual void title(gString const & text) = 0;

  // The status line.
  virtual void status(gString const & text) = 0;
  // A report, without a line end; reports below the minimum level of the display never come here.
  virtual void report(Msg::type type, gString const & line) = 0;
  // The same with all that is known of the report, for those who show more than the line.
  virtual void take_report(gReport const & report, gString const & line);
  // Free text of the log stream, line by line; Msg::status for lines that only tell progress.
  virtual void log_line(Msg::type type, gString const & line) = 0;
  virtual void show_msgwindow(bool show) = 0;
  virtual void clear_msgwindow() = 0;
  // Shows a file or folder by what the user's desktop has for its kind; false if that can't be
  // started.
  virtual bool open_file(gString const &) { return false; }
};

// The pointer that tells to wait, for the life of this object.
class gWaitCursor {
public:
  gWaitCursor();
  gWaitCursor(gWaitCursor const &) = delete;
  gWaitCursor & operator=(gWaitCursor const &) = delete;
  ~gWaitCursor();
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
