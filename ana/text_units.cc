// Reads gInputFiles. Fills gNamedUnits, gUnnamedUnits, gUnitNames, gCitations and gBookmarks.

#include "ana/file_loop.h"
#include "ana/parser/doc/doc_parse.h"
#include "ana/stages.h"

void ana_text_units(std::list<gSrcFile> const & files) {
  doc_parse parser(150);
  Msg::log(Msg::analyzing_text_units);
  file_loop(
      files, {Msg::analyzing_text_units, Msg::text_units_failed, gRunStage::text_units},
      [](gSrcFile const &) { return ""; },
      [&](gSrcFile const & file, gReportSink & reports) {
        parser.reset();
        parser.report_to(reports);
        parser.set_input(file);
        return parser.parse();
      });
}
