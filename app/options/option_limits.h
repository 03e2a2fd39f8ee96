// The limits that the rows of the options state.
#pragma once

#include "app/options/option_row.h"
#include "app/options/text_rules.h"

namespace Vapp {

// Whether a value lies within the limits of its row.
gCheck check_limits(gOptionRow const & row, cObj const & value);
// The first option that differs and lies outside its limits.
gCheck check_limits(cObj const & before, cObj const & after);

// What a rule leaves of a typed text: frame characters without blanks, letters, digits and repeated
// ones, extensions without characters that no file name has.
std::string cleaned(gTextRule rule, std::string const & text);

} // namespace Vapp
