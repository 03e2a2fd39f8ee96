// Reads gInputFiles, gNamedUnits and gUnnamedUnits. Fills gCodeElems, gComments and the class
// tables.

#include "ana/file_loop.h"
#include "ana/parser/cpp/cpp_parse.h"
#include "ana/parser/pascal/pas_parse.h"
#include "ana/stages.h"

namespace {

constexpr int stack_size = 150;

// Files without program code are passed over.
char const * label_of_code(gSrcFile const & file) {
  return file.language() == gLanguage::text ? nullptr : language_label(file.language());
}

} // namespace

void ana_program_code(std::list<gSrcFile> const & files) {
  cpp_parse cpp(stack_size);
  pas_parse pascal(stack_size);
  Msg::log(Msg::analyzing_code);
  file_loop(files, {Msg::analyzing_code, Msg::code_failed, gRunStage::code}, label_of_code,
            [&](gSrcFile const & file, gReportSink & reports) {
              bool const is_pascal = file.language() == gLanguage::pascal;
              gVLParseBase & parser = is_pascal ? static_cast<gVLParseBase &>(pascal) : cpp;
              parser.reset();
              parser.report_to(reports);
              parser.set_input(file);
              return parser.parse();
            });
}
