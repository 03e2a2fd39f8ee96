// The limits of the options that are numbers.
#pragma once

#include "app/options/text_rules.h"

namespace Vapp {

// The first number that differs and lies outside its limits.
gCheck check_numbers(cObj const & before, cObj const & after);

} // namespace Vapp
