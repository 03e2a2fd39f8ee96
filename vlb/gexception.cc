// The texts of the exceptions are put together where they are raised, so that a handler only
// passes them on.
#include "vlb/gexception.h"

#include "vlb/messages.h"
#include "vlb/source_place.h"

gExcFatalErr::gExcFatalErr(gMessage const & message, gString const & argument,
                           gReportPlace const & place)
    : gException(gString(message.text) + argument),
      report_(message, argument, place) {}

gExcInternalErr::gExcInternalErr(gString const & text, gString const & argument,
                                 gString const & where)
    : gExcFatalErr(Msg::internal_error,
                   text + argument + (where.empty() ? std::string() : " (" + where + ")")) {}

gExcUserBreak::gExcUserBreak() : gException("User aborted program.") {}

gExcRange::gExcRange(long value, long low, long high)
    : gException("Invalid index: " + std::to_string(value) + " (" + std::to_string(low) + " to " +
                 std::to_string(high) + ")") {}

namespace Vlb {

void assertion_failed(char const * condition, char const * file, int line) {
  throw gExcInternalErr("ASSERT_ failed: ", condition, source_place(file, line));
}

} // namespace Vlb
