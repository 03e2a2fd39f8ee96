// Comments of other systems, in C++ and in Pascal: the copy keeps its lines whatever it holds.

#include <algorithm>
#include <cstdlib>

#include "ana/foreign.h"
#include "quiet_run.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  fuzz_one([&] {
    std::string const copy(fuzz_text(data, size));
    for (gLanguage const language : {gLanguage::cpp, gLanguage::pascal}) {
      std::string const adopted = adopt_comments(copy, language);
      if (std::ranges::count(adopted, '\n') != std::ranges::count(copy, '\n'))
        std::abort();
    }
  });
  return 0;
}
