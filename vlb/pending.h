// What is written beside its place must not stay there when a signal ends the process.
#pragma once

#include <string>

namespace Vlb {

// Lists a file or a folder, made or about to be made, for the life of this object.
class gPending {
public:
  explicit gPending(std::string const & path);
  ~gPending();
  gPending(gPending const &) = delete;
  gPending & operator=(gPending const &) = delete;

  // Between the two it isn't removed: it may be getting its own name. If the process is about to
  // go, hold() halts the caller instead, and what is listed stays so.
  void hold();
  void release();

private:
  void * slot_;
};

// Removes all that is listed, folders with what they hold, for a process that is about to go:
// whoever lists something from now on is halted. Safe to call in a signal handler.
void end_pending() noexcept;

} // namespace Vlb
