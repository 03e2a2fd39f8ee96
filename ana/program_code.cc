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

// A list that was too short for its reports is rare: the file is simply read again.
void settle(gFileReader & reader, gFileFacts & facts, gReportSink & reports) {
  if (facts.code.reports.left_out() == 0)
    return;
  facts.code = {};
  facts.code.reports = gReportList(gRunStage::code, &reports);
  reader.read_code(facts);
}

} // namespace

void ana_program_code(std::vector<gFileFacts> & files) {
  gReadInput const input;
  Vlb::gPerWorker<gFileReader> readers(Vlb::thread_count(gInput->jobs),
                                       [&] { return std::make_unique<gFileReader>(input); });
  Msg::log(Msg::analyzing_code);
  read_files<bool>(
      files, {Msg::analyzing_code, Msg::code_failed, gRunStage::code}, label_of_code,
      [&](unsigned worker, gFileFacts & facts) {
        readers[worker].read_code(facts);
        return true;
      },
      [&](gFileFacts & facts, auto const & wait, gReportSink & reports) {
        wait();
        settle(readers[0], facts, reports);
        enter_code(facts);
        return finish_reading(facts.code.reports, facts.code.end, reports);
      });
}
