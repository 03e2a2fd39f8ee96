// Items are handed out in their order. Whoever waits for one works on others meanwhile, so as many
// threads are busy as were asked for, and the one that takes the results is never idle.
#include "vlb/ordered.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

namespace {

struct Slot {
  bool done = false;
  std::exception_ptr fault;
};

} // namespace

unsigned Vlb::thread_count(int wish) {
  return wish > 0 ? static_cast<unsigned>(wish) : std::max(1U, std::thread::hardware_concurrency());
}

struct Vlb::gOrderedWork::State {
  State(std::size_t count, std::size_t window, Work work)
      : work(std::move(work)),
        count(count),
        slots(window) {}

  bool can_begin() const { return begun < count && begun < released + slots.size(); }
  void do_one(unsigned worker, std::unique_lock<std::mutex> & lock);
  void run(unsigned worker);

  Work const work;
  std::size_t const count;
  std::mutex mutex;
  std::condition_variable changed; // something was done, released or stopped
  std::vector<Slot> slots;         // by item, modulo their number
  std::size_t begun = 0, released = 0;
  bool stopped = false;
  std::vector<std::thread> threads;
};

void Vlb::gOrderedWork::State::do_one(unsigned worker, std::unique_lock<std::mutex> & lock) {
  std::size_t const item = begun++;
  lock.unlock();
  Slot made{true, nullptr};
  try {
    work(worker, item);
  } catch (...) {
    made.fault = std::current_exception();
  }
  lock.lock();
  slots[item % slots.size()] = std::move(made);
  changed.notify_all();
}

void Vlb::gOrderedWork::State::run(unsigned worker) {
  std::unique_lock lock(mutex);
  while (!stopped && begun < count)
    if (can_begin())
      do_one(worker, lock);
    else
      changed.wait(lock);
}

Vlb::gOrderedWork::gOrderedWork(unsigned threads, std::size_t count, std::size_t window, Work work)
    : state_(std::make_unique<State>(count, window, std::move(work))) {
  State * const state = state_.get();
  state->threads.reserve(threads);
  try {
    for (unsigned worker = 1; worker < threads && worker < count; ++worker)
      state->threads.emplace_back([state, worker] { state->run(worker); });
  } catch (std::system_error const &) {
    // The machine gives no more of them: those that there are do the work.
  }
}

Vlb::gOrderedWork::~gOrderedWork() {
  {
    std::lock_guard const lock(state_->mutex);
    state_->stopped = true;
  }
  state_->changed.notify_all();
  for (std::thread & thread : state_->threads)
    thread.join();
}

void Vlb::gOrderedWork::wait_for(std::size_t item) {
  std::unique_lock lock(state_->mutex);
  Slot & slot = state_->slots[item % state_->slots.size()];
  while (!slot.done)
    if (state_->can_begin())
      state_->do_one(0, lock);
    else
      state_->changed.wait(lock);
  slot.done = false;
  if (slot.fault)
    std::rethrow_exception(std::exchange(slot.fault, nullptr));
}

void Vlb::gOrderedWork::release() {
  {
    std::lock_guard const lock(state_->mutex);
    ++state_->released;
  }
  state_->changed.notify_all();
}
