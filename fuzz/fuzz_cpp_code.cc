// C/C++ declarations, on any preprocessed file.

#include "ana/parser/cpp/cpp_parse.h"
#include "quiet_run.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  fuzz_one([&] {
    static cpp_parse parser(150);
    parser.reset();
    parser.scanner().open_text(gSrcFile("fuzz.h", "", 1), fuzz_text(data, size));
    parser.parse();
  });
  return 0;
}
