// The thread stays joinable, so that a caller can wait for it. The object is never destroyed: a
// window may be closed, and with it the program, while the worker is busy.

#include "app/shell/worker.h"

#include <thread>

namespace {

std::thread & worker() {
  static std::thread & thread = *new std::thread;
  return thread;
}

} // namespace

void Shell::wait_for_worker() {
  if (worker().joinable())
    worker().join();
}

void Shell::start_worker(void (*function)(void *), void * argument) {
  wait_for_worker();
  worker() = std::thread(function, argument);
}
