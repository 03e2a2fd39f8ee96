#include "ana/ana_thread.h"

namespace {

// "4,812 declarations".
std::string counted(std::size_t count, std::string const & word) {
  std::string digits = std::to_string(count);
  for (std::size_t at = digits.size(); at > 3;)
    digits.insert(at -= 3, ",");
  return digits + " " + word;
}

} // namespace

std::string ana_read_words(std::size_t declarations, std::size_t skipped) {
  return counted(declarations, declarations == 1 ? "declaration" : "declarations") + ", " +
         counted(skipped, skipped == 1 ? "stretch skipped" : "stretches skipped");
}
