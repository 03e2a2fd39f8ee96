// The text-unit language, on any preprocessed file.

#include "ana/cmdpar/keywords.h"
#include "ana/read/read_file.h"
#include "app/options/run_input.h"
#include "quiet_run.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  fuzz_one([&] {
    static gReadInput const input;
    static gFileReader reader(input);
    gUEKeywords.build_keywords(Vapp::standard_run_input());
    gFileFacts facts;
    facts.file = gSrcFile("fuzz.h", "", 1);
    std::string_view const text = fuzz_text(data, size);
    reader.read_text(facts, {}, &text);
  });
  return 0;
}
