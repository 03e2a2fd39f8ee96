#include "vlb/random_name.h"

#include <chrono>
#include <unistd.h>

namespace Vlb {

std::string random_name() {
  unsigned long long value = 0;
  // Whoever uses the name creates the file exclusively, so a weaker one does no harm.
  if (::getentropy(&value, sizeof value) != 0)
    value = static_cast<unsigned long long>(
        std::chrono::steady_clock::now().time_since_epoch().count());
  std::string name;
  for (int digit = 0; digit < 16; ++digit, value >>= 4)
    name += "0123456789abcdef"[value & 15];
  return name;
}

std::string work_ending() {
  return "." + random_name() + ".tmp";
}

bool is_work_name(std::string_view name, std::size_t length) {
  static std::size_t const ending = work_ending().size();
  return name.size() == length + ending && name[length] == '.' && name.ends_with(".tmp") &&
         name.substr(length + 1).find_first_not_of("0123456789abcdef") == ending - 5;
}

} // namespace Vlb
