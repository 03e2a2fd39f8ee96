// The main window without a window system: commands, messages, progress, help, start and exit.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/shell/window/geometry.h"
#include "app/shell/window/help.h"
#include "app/shell/window/menu_model.h"
#include "app/shell/window/message_list.h"
#include "app/shell/window/run_progress.h"
#include "store/csignal.h"
#include "vlb/outside.h"

// The window as the frame sees it. All calls come on the window's thread.
class gFrameView {
public:
  virtual ~gFrameView() = default;
  // Makes the window, not yet shown. False ends the start.
  virtual bool create() = 0;
  // The usable areas of the screens, the main one first.
  virtual std::vector<gRect> screens() = 0;
  virtual gRect place() = 0;
  virtual void set_place(gRect const & place) = 0;
  virtual void show() = 0;
  // Closes the window for good; nothing is asked any more.
  virtual void close() = 0;
  virtual void set_title(std::string const & title) = 0;
  // Entries were enabled or disabled, checked or unchecked: menus() and tool_bar() tell.
  virtual void update_menu() = 0;
  virtual void show_tool_bar(bool show) = 0;
  virtual void show_status_bar(bool show) = 0;
  virtual void show_messages(bool show) = 0;
  // Lines came to the message list, at its end, or all went (`cleared`) before those that are
  // there.
  virtual void update_messages(bool cleared) = 0;
  // Stage, percentage and remaining time are new.
  virtual void update_progress() = 0;
};

// The list of all commands. The window's events come in; what follows of them goes to the view and
// to the port of boxes and dialogs.
class gVappFrame : public cHandlerList {
public:
  gVappFrame(gFrameView & view, gDesktop & desktop, gPathstring const & help_map);
  ~gVappFrame() override;

  // The menu from the first of "vle.mnu" beside the program and in its folder "ini" that holds
  // commands; without one only what is built in. Unknown commands are told in one report.
  void load_menu();

  gMenuModel const & menu() const { return menu_; }
  gMessageList & messages() { return messages_; }
  gMessageQueue & queue() { return queue_; }
  gRunProgress const & progress() const { return progress_; }
  gHelp & help() { return help_; }
  // No project and no report: the window says what to do next.
  bool first_start() const;

  // Events. Runs an entry of the menu, by its number or name, if it is enabled; false if it isn't.
  bool run(int id);
  bool run(std::string_view name);
  // The text for the status line while the pointer is on an entry; empty without one.
  std::string message_string(int id);
  // F1 over an entry.
  void help_on_entry(int id);
  // F1 in a dialog.
  void help_on(int context);
  void drop_files(std::vector<std::string> const & paths, cPointT2<int> const & place);
  // Shows a file or folder by what the desktop has for it; false if that can't be started.
  bool open_file(gPathstring const & path);
  // Opens the place of a message.
  void open_message(std::size_t row);
  // To be called some twenty times a second, and when the queue wakes the window: takes what
  // the worker has told and, at its end, its result; asks the entries for their state. True if
  // the loop should come back at once.
  bool idle();
  // The user closes the window. The view's close() follows, at once or when a run has stopped;
  // or nothing, if the user wants to stay.
  void close();

private:
  void take_messages();
  void show_messages(bool show);
  void refresh();
  void run_built_in(gBuiltIn entry);
  void leave();
  void help_finder();

  gFrameView & view_;
  gDesktop & desktop_;
  gMessageQueue queue_;
  gMessageList messages_;
  gRunProgress progress_;
  gMenuModel menu_;
  gHelp help_;
  cSlot<gVappFrame> help_slot_;
  bool closing_ = false; // a run is being stopped, the window goes behind it
  bool asking_ = false;  // the user is being asked about the exit
};
