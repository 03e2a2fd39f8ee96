// An exception that nobody expected still tells the user what to do about it.
#include "vlb/caught.h"

#include <new>

#include "vlb/gexception.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

gReport report_of_caught() {
  try {
    throw;
  } catch (gExcFatalErr const & fault) {
    return fault.report();
  } catch (std::bad_alloc const &) {
    return Msg::out_of_memory;
  } catch (std::exception const & fault) {
    return {Msg::exception, fault.what()};
  } catch (...) {
    return {Msg::exception, "of an unknown kind"};
  }
}

void report(gReportPlace const & place) {
  try {
    throw;
  } catch (gExcUserBreak const & stop) {
    Msg::log() << stop.text() << std::endl;
  } catch (...) {
    gReport report = report_of_caught();
    if (report.place.empty() && report.message != &Msg::error_limit)
      report.place = place;
    Msg::log.take(std::move(report));
  }
}

} // namespace

void Vlb::report_caught(gReportPlace const & place) {
  try {
    report(place);
  } catch (...) {
    // The report itself has reached the limit of errors; it is written, and the run ends anyway.
  }
}
