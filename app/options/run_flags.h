// Flags that cross threads.
#pragma once

#include <atomic>

namespace Vapp {

// The starter of a run or a conversion sets these three, on its thread.
extern std::atomic<bool> ana_active;    // a run is in progress
extern std::atomic<bool> ana_success;   // the intermediate code of the last run is usable
extern std::atomic<bool> output_active; // a conversion is in progress
extern std::atomic<bool> user_break;    // the user asked for an orderly stop

// Throws gExcUserBreak if user_break is set.
void poll_break();

} // namespace Vapp
