// The script language behind its preprocessor: templates are stored and commands built, but
// nothing runs.

#include "ana/cmdpar/gcmd.h"
#include "ana/cmdpar/script_stages.h"
#include "ana/parser/script/mdf_parse.h"
#include "quiet_run.h"

namespace {

class NoStages : public gScriptStages {
public:
  void run() override {}
  void generate(gCmdSeq &, std::set<gString> const &, gString const &) override {}
  void refused() override {}
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  fuzz_one([&] {
    static NoStages stages;
    static mdf_parse parser(stages);
    parser.reset();
    parser.scanner().open_text(gSrcFile("fuzz.vls", "", 0), fuzz_text(data, size));
    parser.parse();
  });
  return 0;
}
