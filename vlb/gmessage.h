// The severity of a report, and what the catalogue says of it.
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

// A row of the catalogue (vlb/messages.def); number 0 for an unnumbered one. A text that ends in ":
// " is completed by the report's argument.
struct gMessage {
  enum class Form : unsigned char {
    line, // with prefix word and number
    bare  // the text says by itself how grave it is, as "FATAL ERROR: ..." does
  };

  constexpr gMessage(int number, Msg::type severity, std::string_view text,
                     std::string_view advice = {}, Form form = Form::line)
      : text(text),
        advice(advice),
        number(number),
        severity(severity),
        form(form) {}

  // A hint continues the report in front of it, which has told the position.
  constexpr bool is_hint() const { return severity == Msg::warn_hint || severity == Msg::err_hint; }

  std::string_view text;
  std::string_view
      advice; // what it means and what to do, in the mark-up of the manual; may be empty
  int number;
  Msg::type severity;
  Form form;
};
