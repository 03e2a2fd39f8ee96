// Pascal declarations, on any preprocessed file.

#include "ana/read/read_file.h"
#include "quiet_run.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  fuzz_one([&] {
    static gReadInput const input;
    static gFileReader reader(input);
    gSrcFile::set_pas_ext("pas");
    gFileFacts facts;
    facts.file = gSrcFile("fuzz.pas", "", 1);
    std::string_view const text = fuzz_text(data, size);
    reader.read_code(facts, &text);
  });
  return 0;
}
