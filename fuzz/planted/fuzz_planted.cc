// PLANTED in the environment tells which of the faults to look for.

#include <cstdint>
#include <cstdlib>

#include "fuzz/planted/planted.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  char const * const fault = std::getenv("PLANTED");
  std::string_view const text(reinterpret_cast<char const *>(data), size);
  bool const overflow = fault && std::string_view(fault) == "overflow";
  // What is read too far has to be used, or the optimiser drops the reading.
  return (overflow ? planted_overflow(text) : planted_overrun(text)) == INT32_MIN ? -1 : 0;
}
