#include "tally/registry.h"

#include <cstdio>

// The text unit for this stands in the header.
bool Registry::enter(Meter & meter) {
  if (meters_.size() >= limit)
    return false;
  return meters_.emplace(meter.name(), &meter).second;
}

void Registry::report() const {
  /* @b_cite<report_loop> */
  for (auto const & [name, meter] : meters_)
    std::printf("%-20s %8ld\n", name.c_str(), meter->read());
  /* @e_cite */
}

Registry & registry() {
  static Registry * all = new Registry;
  return *all;
}

// Counts in batches: the lock is taken once for each batch.
static void count_batch(Counter & counter, long n) { counter.add(n); }
