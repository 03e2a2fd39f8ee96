// Which subentries a unit type has, and how each is filled: three decimal digits, each 0 or 1.
#pragma once

#include <string>

#include "app/options/text_rules.h"

namespace Vapp {

// The weights of the digits.
enum gConfigDigit {
  config_verbatim_digit = 1,
  config_automatic_digit = 10,
  config_fill_digit = 100
};

inline bool has_digit(int digits, gConfigDigit digit) {
  return digits >= 0 && digits / digit % 10 == 1;
}

// Whether the unit type has subentries at all.
gCheck check_configurable(std::string const & unit_type);
// Whether a digit may be switched from what it is in `digits`.
gCheck check_toggle(std::string const & unit_type, std::string const & subentry, int digits,
                    gConfigDigit digit);
// The digits after switching one.
int toggled(int digits, gConfigDigit digit);

} // namespace Vapp
