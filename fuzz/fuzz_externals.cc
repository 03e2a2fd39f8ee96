// Lists of other documentation: any bytes are read or refused, and no address leaves its base.

#include <cstdlib>

#include "conv/set/externals.h"
#include "quiet_run.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  fuzz_one([&] {
    gExternals externals("");
    std::string_view const text = fuzz_text(data, size);
    Externals::read_inventory(text, "https://h/", externals);
    Externals::read_tags(text, "https://h/", externals);
    std::string const found = externals.href("a", false);
    if (!found.empty() &&
        (!found.starts_with("https://h/") || found.find_first_of("\"<> ") != found.npos))
      std::abort();
  });
  return 0;
}
