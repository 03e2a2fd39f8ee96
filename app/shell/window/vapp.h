// The program with the window: the order of its start and of its end.
#pragma once

#include <functional>
#include <string>

#include "app/shell/window/vapp_frame.h"

class gVapp {
public:
  gVapp(gVappFrame & frame, gFrameView & view) : frame_(frame), view_(view) {}

  // Defaults, settings, window, menu, place; then what the command line names, or the last project.
  // `file`: the first argument of the command line, empty without one. False if there is no window.
  bool InitInstance(std::string const & file);
  // Runs the message loop. An exception in it is shown, and ends the program.
  int Run(std::function<int()> const & loop);
  // True if the loop should come back at once.
  bool OnIdle() { return frame_.idle(); }
  // Writes the settings, behind the window's end. False if they can't be written.
  bool ExitInstance();

  // Where the help map lies: beside the program.
  static gPathstring help_map();

private:
  void open_first(std::string const & file);

  gVappFrame & frame_;
  gFrameView & view_;
};
