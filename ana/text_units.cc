// Fills gNamedUnits, gUnnamedUnits, gUnitNames, gCitations and gBookmarks.

#include "ana/anadat/tables.h"
#include "ana/file_loop.h"
#include "ana/read/enter.h"
#include "ana/read/read_file.h"
#include "ana/stages.h"

namespace {

// A name that an earlier file has taken changes what the file says, and so does a list that was too
// short for its reports. Both are rare, so the file is simply read again.
void settle(gFileReader & reader, gFileFacts & facts, gReportSink & reports) {
  gTakenNames const taken = names_taken(facts.text);
  if (taken.empty() && facts.text.reports.left_out() == 0)
    return;
  facts.text = {};
  facts.text.reports = gReportList(gRunStage::text_units, &reports);
  reader.read_text(facts, taken);
}

} // namespace

std::vector<gFileFacts> ana_text_units(std::list<gSrcFile> const & files) {
  gReadInput const input{gVLAttributes.tables()};
  Vlb::gPerWorker<gFileReader> readers(Vlb::thread_count(gInput->jobs),
                                       [&] { return std::make_unique<gFileReader>(input); });
  std::vector<gFileFacts> all;
  all.reserve(files.size());
  Msg::log(Msg::analyzing_text_units);
  read_files<gFileFacts>(
      files, {Msg::analyzing_text_units, Msg::text_units_failed, gRunStage::text_units},
      [](gSrcFile const &) { return ""; },
      [&](unsigned worker, gSrcFile const & file) {
        gFileFacts facts;
        facts.file = file;
        readers[worker].read_text(facts);
        return facts;
      },
      [&](gSrcFile const &, auto const & facts_of_file, gReportSink & reports) {
        gFileFacts & facts = all.emplace_back(facts_of_file());
        settle(readers[0], facts, reports);
        enter_text(facts);
        return finish_reading(facts.text.reports, facts.text.end, reports);
      });
  return all;
}
