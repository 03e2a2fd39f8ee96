// The comment preprocessor of C/C++ sources, on any bytes.

#include "ana/parser/pre/cpre_scan.h"
#include "quiet_run.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  fuzz_one([&] {
    static gSrcFile const sink("/dev/null", "", 0);
    static cpre_scan scanner(gScanBase::standard_size);
    scanner.reset();
    scanner.open_text(gSrcFile("fuzz.h", "", 0), fuzz_text(data, size));
    scanner.open_outfile(sink);
    scanner.scan();
    scanner.close_outfile();
  });
  return 0;
}
