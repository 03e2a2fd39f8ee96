// How checks tell their refusals: error records on a signal, and an error stream.
#pragma once

#include <ostream>
#include <string>

#include "store/csignal.h"

// One error. The code's meaning is that of the check that publishes it; 0 is never an error.
class cErr {
public:
  cErr(unsigned code, char const * text) : code_(code), text_(text) {}
  cErr(unsigned code, std::string text) : code_(code), text_(std::move(text)) {}
  unsigned code() const { return code_; }
  std::string const & text() const { return text_; }

private:
  unsigned code_;
  std::string text_;
};

// Free text about errors; goes to the standard error stream.
class cErrStream : public std::ostream {
public:
  cErrStream();
};
cErrStream & eros();

class cException {
public:
  explicit cException(std::string text) : text_(std::move(text)) {}
  virtual ~cException() = default;
  virtual std::string as_string() const { return text_; }

private:
  std::string text_;
};

namespace cat {
// Publishes each cErr.
cSignal1<cErr &> & sig_error();
// Publishes an error with its text.
void publish_error(unsigned code, std::string const & text);
} // namespace cat

// Hears every cErr for the length of its life.
class cErrSlot : public cFunctionSlot1<cErr &, std::function<void(cErr &)>> {
public:
  explicit cErrSlot(std::function<void(cErr &)> function) : cFunctionSlotN(std::move(function)) {
    cat::sig_error().connect(*this);
  }
};
