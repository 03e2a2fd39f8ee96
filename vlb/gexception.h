// The exceptions of the system. They are caught in three places: around a file, a script, a run.
#pragma once

#include <exception>

#include "vlb/greport.h"

class gException : public std::exception {
public:
  gException(gException const &) = default;
  char const * what() const noexcept override { return text_.c_str(); }
  virtual gString text() const { return text_; }

protected:
  explicit gException(gString const & text) : text_(text) {}

private:
  gString text_;
};

// A fault that ends the current stage: a row of the catalogue, its argument and, where it is known,
// the place.
class gExcFatalErr : public gException {
public:
  explicit gExcFatalErr(gMessage const & message, gString const & argument = gString(),
                        gReportPlace const & place = {});
  gReport const & report() const { return report_; }

private:
  gReport report_;
};

// A broken rule of the program itself: " INTERNAL ERROR: ", text, argument, place.
class gExcInternalErr : public gExcFatalErr {
public:
  gExcInternalErr(gString const & text, gString const & argument, gString const & where);
};

// The user stopped the run.
class gExcUserBreak : public gException {
public:
  gExcUserBreak();
};

// An index out of its range.
class gExcRange : public gException {
public:
  gExcRange(long value, long low, long high);
};

// Raises gExcInternalErr with "ASSERT_ failed: ", the condition and its place.
#define VLB_ASSERT(condition)                                                                      \
  do {                                                                                             \
    if (!(condition))                                                                              \
      Vlb::assertion_failed(#condition, __FILE__, __LINE__);                                       \
  } while (false)

namespace Vlb {
[[noreturn]] void assertion_failed(char const * condition, char const * file, int line);
} // namespace Vlb
