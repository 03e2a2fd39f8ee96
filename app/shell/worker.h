// The one worker thread: a run or a conversion.
#pragma once

namespace Shell {

// Runs the function in a thread of its own. What it is still doing at its end, the call waits for;
// the enabling of the commands sees to it that nothing longer is under way.
void start_worker(void (*function)(void *), void * argument);
// Returns when the worker has ended; at once if there is none.
void wait_for_worker();

} // namespace Shell
