// The text-unit language, on any preprocessed file.

#include "ana/cmdpar/keywords.h"
#include "ana/parser/doc/doc_parse.h"
#include "quiet_run.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  fuzz_one([&] {
    static doc_parse parser(150);
    gUEKeywords.build_keywords(Vapp::standard_run_input());
    parser.reset();
    parser.scanner().open_text(gSrcFile("fuzz.h", "", 1), fuzz_text(data, size));
    parser.parse();
  });
  return 0;
}
