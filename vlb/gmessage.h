// The severity of a report, and the fixed half of its text.
#pragma once

#include "vlb/gstring.h"

namespace Msg {

// In order of severity; also the unit of the minimum levels.
enum type : int {
  all = 0, // never reported; as a minimum level it lets everything pass
  info = 1,
  status = 2,    // progress of the stages
  warn_hint = 3, // continuation of a warning
  warning = 4,
  err_hint = 5,  // continuation of an error
  doc_error = 6, // a fault in the documentation
  error = 7      // a fault in the input or the environment
};

} // namespace Msg

// A numbered text of the catalogue (vlb/messages.h); number 0 for an unnumbered one. A text that
// ends in ": " is completed by the report's argument.
struct gMessage {
  gMessage(int number, gString const & text) : text(text), number(number) {}
  explicit gMessage(gString const & text) : text(text), number(0) {}

  gString text;
  int number;
};
