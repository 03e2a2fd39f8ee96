// Project files: any text is read or refused, and what was read survives being written.

#include <cstdlib>
#include <sstream>

#include "quiet_run.h"
#include "store/text_form.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  cMapObj map;
  if (!text2map(fuzz_text(data, size), "fuzz.vlp", map))
    return 0;
  std::ostringstream written;
  map.writeobj(written);
  cMapObj again;
  if (!text2map(written.str(), "again.vlp", again) || !again.equal(map))
    std::abort();
  return 0;
}
