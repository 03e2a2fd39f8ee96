// An argument is cut: in a damaged file it can be anything, and a report is one line.
#include "conv/atc/faults.h"

#include "vlb/messages.h"

void gAtcFaults::report(gMessage const & message, std::string_view argument, int line) {
  constexpr std::size_t longest = 80;
  if (left_ < 0)
    return;
  gReportPlace const where(path_, line);
  if (left_-- == 0)
    sink_(Msg::atc_more_faults, "", where);
  else
    sink_(message, gString(argument.substr(0, longest)), where);
}
