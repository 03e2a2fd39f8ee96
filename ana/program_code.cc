// Fills gCodeElems, gComments and the class tables.

#include "ana/file_loop.h"
#include "ana/read/enter.h"
#include "ana/read/read_file.h"
#include "ana/stages.h"

namespace {

// Files without program code are passed over.
char const * label_of_code(gFileFacts const & facts) {
  gLanguage const language = facts.file.language();
  return language == gLanguage::text ? nullptr : language_label(language);
}

} // namespace

void ana_program_code(std::vector<gFileFacts> & files) {
  gReadInput const input;
  gFileReader reader(input);
  Msg::log(Msg::analyzing_code);
  file_loop(files, {Msg::analyzing_code, Msg::code_failed, gRunStage::code}, label_of_code,
            [&](gFileFacts & facts, gReportSink & reports) {
              facts.code.reports = gReportList(gRunStage::code, &reports);
              reader.read_code(facts);
              enter_code(facts);
              return finish_reading(facts.code.reports, facts.code.end, reports);
            });
}
