// What the program answers to its caller.
#pragma once

enum gExitStatus : int {
  exit_ok = 0,
  exit_failed = 1,  // the run or what it writes failed
  exit_refused = 2, // wrong usage, an unreadable project, a refused folder or value
  exit_reports = 3, // --fail-on was reached
  exit_interrupted = 130,
};
