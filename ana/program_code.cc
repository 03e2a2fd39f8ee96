// Reads gInputFiles, gNamedUnits and gUnnamedUnits. Fills gCodeElems, gComments and the class
// tables.

#include "ana/file_loop.h"
#include "ana/parser/cpp_parse.h"
#include "ana/stages.h"

namespace {

// Files without program code are passed over.
char const * label_of_code(gSrcFile const & file) {
  return file.language() == gLanguage::cpp ? language_label(file.language()) : nullptr;
}

} // namespace

void ana_program_code(std::list<gSrcFile> const & files) {
  cpp_parse parser(150);
  Msg::log(Msg::status, Msg::analyzing_code);
  file_loop(files, Msg::analyzing_code, Msg::code_failed, label_of_code,
            [&](gSrcFile const & file) {
              parser.reset();
              parser.set_input(file);
              return parser.parse();
            });
}
