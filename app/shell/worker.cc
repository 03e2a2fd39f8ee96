// The thread stays joinable, so that a caller can wait for it. What it found is handed over when it
// is joined, so nothing that belongs to the starter's thread is ever written by it. The state is
// never destroyed: a window may be closed, and with it the program, while the worker is busy.

#include "app/shell/worker.h"

#include <atomic>
#include <thread>
#include <utility>

namespace {

struct Worker {
  std::thread thread;
  std::atomic<bool> done = false;
  std::function<void()> finished;
};

Worker & worker() {
  static Worker & worker = *new Worker;
  return worker;
}

// `finished` may start the next one.
void end_worker() {
  worker().thread.join();
  std::exchange(worker().finished, nullptr)();
}

} // namespace

void Shell::wait_for_worker() {
  while (worker().thread.joinable())
    end_worker();
}

bool Shell::collect_worker() {
  if (!worker().thread.joinable())
    return true;
  if (!worker().done)
    return false;
  end_worker();
  return true;
}

void Shell::start_worker(gWork work) {
  wait_for_worker();
  worker().finished = std::move(work.finished);
  worker().done = false;
  worker().thread = std::thread([task = std::move(work.work)] {
    task();
    worker().done = true;
  });
}
