// Pascal declarations, on any preprocessed file.

#include "ana/parser/pascal/pas_parse.h"
#include "quiet_run.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  fuzz_one([&] {
    static pas_parse parser(150);
    parser.reset();
    parser.scanner().open_text(gSrcFile("fuzz.pas", "", 1), fuzz_text(data, size));
    parser.parse();
  });
  return 0;
}
