// An argument is cut: in a damaged file it can be anything, and a report is one line.
#include "conv/atc/faults.h"

#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

void gAtcFaults::report(gMessage const & message, std::string_view argument, int line) {
  constexpr std::size_t longest = 80;
  if (left_ < 0)
    return;
  gReportPlace const where(path_, line);
  if (left_-- == 0)
    Msg::log(Msg::atc_more_faults, "", where);
  else
    Msg::log(message, gString(argument.substr(0, longest)), where);
}
