// The last stop of exceptions: what a thread's entry caught becomes a report.
#pragma once

#include "vlb/greport.h"

namespace Vlb {

// To be called in a handler: reports the exception in hand; a stop by the user is a line of the
// log. `place` stands where the exception knows none. Never throws.
void report_caught(gReportPlace const & place = {});

} // namespace Vlb
