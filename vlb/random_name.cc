#include "vlb/random_name.h"

#include <chrono>
#include <unistd.h>

namespace {
constexpr std::size_t length_of_names = 16;
constexpr std::string_view digits = "0123456789abcdef";
} // namespace

namespace Vlb {

std::string random_name() {
  unsigned long long value = 0;
  // Whoever uses the name creates the file exclusively, so a weaker one does no harm.
  if (::getentropy(&value, sizeof value) != 0)
    value = static_cast<unsigned long long>(
        std::chrono::steady_clock::now().time_since_epoch().count());
  std::string name;
  for (std::size_t digit = 0; digit < length_of_names; ++digit, value >>= 4)
    name += digits[value & 15];
  return name;
}

std::string work_ending() {
  return "." + random_name() + ".tmp";
}

bool is_random_name(std::string_view name, std::string_view prefix) {
  return name.starts_with(prefix) && name.size() == prefix.size() + length_of_names &&
         name.find_first_not_of(digits, prefix.size()) == name.npos;
}

bool is_work_name(std::string_view name, std::size_t length) {
  static std::size_t const ending = work_ending().size();
  return name.size() == length + ending && name[length] == '.' && name.ends_with(".tmp") &&
         is_random_name(name.substr(length + 1, length_of_names), "");
}

} // namespace Vlb
