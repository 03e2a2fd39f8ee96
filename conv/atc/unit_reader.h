// Reads one unit of the intermediate code. It knows nothing of the others, so many can be read at
// the same time.
#pragma once

#include "conv/atc/scanner.h"
#include "conv/atc/unit_facts.h"
#include "vlb/greport.h"

// A unit without its place in the document.
struct gReadUnit {
  gUnitRecord unit;
  Atc::gMarks marks; // entries: those of its head first; their unit isn't set
  gReportList reports;
  bool whole = true; // false: it was reported that something is missing
};

namespace Atc {

// Reads the unit whose "@unit" command stands at `begin` (bytes; `line` is its line). The reports
// name the file `path`.
gReadUnit read_unit(std::string_view text, std::size_t begin, std::size_t end, int line,
                    std::string const & path);

// A number of the intermediate code; 1, after a report, if there is none between the bounds.
int number(gAtcScanner & scanner, std::string const & text, int least, int most);
// Reports the first of what else stands in a part.
void expect_nothing(gAtcScanner & scanner);

} // namespace Atc
