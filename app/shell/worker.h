// The one worker thread: a run or a conversion.
#pragma once

#include <functional>

namespace Shell {

struct gWork {
  std::function<void()> work;     // on the worker's thread; never throws
  std::function<void()> finished; // behind it, on the thread of the starter
};

// Runs the work in a thread of its own. What it is still doing at its end, the call waits for; the
// enabling of the commands sees to it that nothing longer is under way.
void start_worker(gWork work);
// Returns when no worker is left and each `finished` was called, also those of workers that another
// `finished` has started; at once if there is none.
void wait_for_worker();
// For a window, which can't wait: false, and nothing happens, while the worker is busy; else its
// `finished` is called, if that wasn't done yet.
bool collect_worker();

} // namespace Shell
