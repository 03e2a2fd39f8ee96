#include "app/options/number_rules.h"

#include <climits>

namespace Vapp {

namespace {

struct Limits {
  char const * map;
  char const * key;
  int low;
  int high;
};

constexpr Limits table[] = {
    {"ana", "tab_width", 1, 16}, {"ana", "verb_indent", 0, 32},   {"msg", "err_max", 0, INT_MAX},
    {"msg", "lvl_disp", 0, 7},   {"msg", "lvl_file", 0, 7},       {"htm", "splitlevel", 1, 9},
    {"hlp", "splitlevel", 1, 9}, {"hlp", "hid_base", 0, INT_MAX},
};
constexpr Limits alloc_table[] = {
    {"alloc", "gen_unit", 0, 511},
    {"alloc", "order", 1, 8},
    {"alloc", "prio", 0, 8},
};

gCheck refuse(std::string message) {
  return gRefusal{field_none, std::move(message)};
}

gCheck check_range(cRef<cObj> const & value, Limits const & limits) {
  int number = limits.low;
  cat::read(value, number);
  if (number >= limits.low && number <= limits.high)
    return std::nullopt;
  return refuse(std::string(limits.key) + " is a number from " + std::to_string(limits.low) +
                (limits.high == INT_MAX ? " on" : " to " + std::to_string(limits.high)));
}

gCheck check_limits(cRef<cObj> const & before, cRef<cObj> const & after, Limits const & limits) {
  cRef<cObj> const value = after / limits.map / limits.key;
  cRef<cObj> const old = before / limits.map / limits.key;
  if (!value || (old && old->equal(*value)))
    return std::nullopt;
  if (!value->map())
    return check_range(value, limits);
  if (value->size() > 8)
    return refuse(std::string(limits.key) + " has at most 8 elements");
  for (cIterObj it = value->begin(); it.valid(); it++)
    if (gCheck const refusal = check_range(it.valref(), limits))
      return refusal;
  return std::nullopt;
}

cRef<cObj> shared(cObj const & object) {
  return cRef<cObj>::share(const_cast<cObj *>(&object));
}

gCheck check_suppressed(cObj const & after) {
  std::string const text = cat::as_string(after.at("msg") / "suppress");
  if (text.find_first_not_of("0123456789, ") == text.npos)
    return std::nullopt;
  return refuse("suppress holds numbers, separated by commas");
}

} // namespace

gCheck check_numbers(cObj const & before, cObj const & after) {
  for (Limits const & limits : table)
    if (gCheck const refusal = check_limits(shared(before), shared(after), limits))
      return refusal;
  for (Limits const & limits : alloc_table)
    if (gCheck const refusal = check_limits(before.at("ana"), after.at("ana"), limits))
      return refusal;
  return check_suppressed(after);
}

} // namespace Vapp
