#include "app/options/unitconfig_rules.h"

namespace Vapp {

namespace {

gCheck refuse(char const * message) {
  return gRefusal{field_none, message};
}

gCheck check_automatic(std::string const & unit_type, std::string const & subentry) {
  if (subentry != "@declaration" && subentry != "@heritage" && subentry != "@description")
    return refuse("Only the following subentries can be filled automatically:\n\n"
                  "@declaration (Deklaration)\n@heritage (direkte Basisklassen)\n"
                  "@description (Default-Untereintrag).");
  if (subentry == "@heritage" && unit_type != "class")
    return refuse("Subentry @heritage can only be filled\nautomatically for unit type 'class'.");
  return std::nullopt;
}

} // namespace

gCheck check_configurable(std::string const & unit_type) {
  if (unit_type == "text")
    return refuse("Unit type 'text' cannot be configured\n(i.e. has no subentries). It is used\n"
                  "for the incorporation of continuous\ntext in the documentation.");
  return std::nullopt;
}

gCheck check_toggle(std::string const & unit_type, std::string const & subentry, int digits,
                    gConfigDigit digit) {
  if (gCheck const refusal = check_configurable(unit_type))
    return refusal;
  bool const on = !has_digit(digits, digit);
  if (on && digit == config_verbatim_digit && subentry == "@sline")
    return refuse("The verbatim format cannot be chosen for subentry @sline.\n"
                  "The subject line always gets a special formatting.");
  if (on && digit == config_automatic_digit)
    return check_automatic(unit_type, subentry);
  if (!on && digit == config_automatic_digit && subentry == "@description")
    return refuse("Subentry @description is always used as\nthe default subentry (for text not\n"
                  "introduced by a subentry keyword).");
  return std::nullopt;
}

int toggled(int digits, gConfigDigit digit) {
  int const old = digits < 0 ? 0 : digits;
  return has_digit(digits, digit) ? old - digit : old + digit;
}

} // namespace Vapp
