// Facts of a file as bytes: whatever comes back is whole, and goes the same way again.

#include <cstdlib>

#include "ana/read/facts_bytes.h"
#include "quiet_run.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  fuzz_one([&] {
    gSrcFile const file("fuzz.h", "", 1);
    std::string_view const text = fuzz_text(data, size);
    facts_from_bytes(text, file);
    auto const facts = facts_from_bytes(Facts::sealed(text), file);
    if (!facts)
      return;
    std::string const bytes = facts_to_bytes(*facts);
    auto const again = facts_from_bytes(bytes, file);
    if (!again || facts_to_bytes(*again) != bytes)
      std::abort();
  });
  return 0;
}
