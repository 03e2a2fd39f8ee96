// The flag of the stop is cleared by whoever starts a worker, so the interrupt itself is remembered
// here.

#include "app/cli/interrupts.h"

#include <atomic>

#include <unistd.h>

#include "app/cli/exit_status.h"
#include "app/options/options.h"
#include "vlb/gfilesystem.h"
#include "vlb/pending.h"

namespace {

enum State : int { idle, busy, interrupted };
std::atomic<int> state = idle;

[[noreturn]] void leave(int status) {
  gFileSystem::end_temp_files();
  Vlb::end_pending();
  _exit(status);
}

extern "C" void on_interrupt(int) {
  int expected = busy;
  if (state.compare_exchange_strong(expected, interrupted)) {
    Vapp::user_break = true;
    return;
  }
  leave(exit_interrupted);
}

extern "C" void on_terminate(int signal) {
  leave(128 + signal);
}

void set(int signal, void (*handler)(int), struct sigaction & old) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigaction(signal, &action, &old);
  // A caller that ignores a signal, as nohup does, wants it ignored.
  if (old.sa_handler == SIG_IGN)
    sigaction(signal, &old, nullptr);
}

} // namespace

gInterrupts::gInterrupts() {
  state = idle;
  set(SIGINT, on_interrupt, old_[0]);
  set(SIGTERM, on_terminate, old_[1]);
  set(SIGHUP, on_terminate, old_[2]);
}

// Whoever was interrupted ends with that status, also if further interrupts come on the way out.
gInterrupts::~gInterrupts() {
  if (state == interrupted)
    return;
  state = idle;
  sigaction(SIGINT, &old_[0], nullptr);
  sigaction(SIGTERM, &old_[1], nullptr);
  sigaction(SIGHUP, &old_[2], nullptr);
}

void gInterrupts::working() {
  int expected = idle;
  if (!state.compare_exchange_strong(expected, busy) && expected == interrupted)
    Vapp::user_break = true;
}

bool gInterrupts::seen() const {
  return state == interrupted;
}
