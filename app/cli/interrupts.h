// Interrupts while a worker is busy.
#pragma once

#include <csignal>

// Handlers for the life of the object. Until work is announced, an interrupt ends the process, and
// so does a second one. The first one while the work goes on asks for an orderly stop. No
// temporary file survives any of it, nor anything that was being written beside its place. One
// object may live within the life of another.
class gInterrupts {
public:
  gInterrupts();
  ~gInterrupts();
  gInterrupts(gInterrupts const &) = delete;
  gInterrupts & operator=(gInterrupts const &) = delete;

  // A worker has been started. What the user asked for in the meantime is passed on to it.
  void working();
  // True if the user asked for the stop.
  bool seen() const;

private:
  struct sigaction old_[3];
};
