// The classic languages read the marked copy twice: once for the text in its comments, once for the
// declarations between them. A reader for another dialect joins in at read_file().
#include "ana/read/read_file.h"

#include <algorithm>

#include "vlb/gexception.h"

namespace {

// A fault that ends the reading belongs to the file.
gReadEnd parse(gVLParseBase & parser, gSrcFile const & file, std::string_view const * bytes) {
  gReadEnd end;
  try {
    if (bytes)
      parser.scanner().open_text(file, *bytes);
    else
      parser.set_input(file);
    end.failed = parser.parse() != 0;
  } catch (gExcFatalErr const & fault) {
    end.fatal = fault.report();
  }
  return end;
}

// Leaves the comments that no text unit begins in.
void keep_free(std::vector<gCommentFacts> & comments, std::vector<int> const & unit_lines) {
  std::erase_if(comments, [&](gCommentFacts const & comment) {
    auto const at = std::ranges::lower_bound(unit_lines, comment.place.line);
    return at != unit_lines.end() && *at <= comment.last_line;
  });
}

} // namespace

gFileFacts gFileReader::read_file(gSrcFile const & file, std::string_view bytes) {
  gFileFacts facts;
  facts.file = file;
  read_text(facts, {}, &bytes);
  read_code(facts, &bytes);
  return facts;
}

void gFileReader::read_text(gFileFacts & facts, gTakenNames const & taken,
                            std::string_view const * bytes) {
  doc_.reset();
  doc_.report_to(facts.text.reports);
  doc_.read_into(facts.text, taken, input_.tables);
  facts.text.end = parse(doc_, facts.file, bytes);
  facts.text.note_lines();
}

void gFileReader::read_code(gFileFacts & facts, std::string_view const * bytes) {
  if (facts.file.language() == gLanguage::text)
    return;
  bool const is_pascal = facts.file.language() == gLanguage::pascal;
  gVLParseBase & parser = is_pascal ? static_cast<gVLParseBase &>(pascal_) : cpp_;
  parser.reset();
  parser.report_to(facts.code.reports);
  if (is_pascal)
    pascal_.read_into(facts.code);
  else
    cpp_.read_into(facts.code);
  facts.code.end = parse(parser, facts.file, bytes);
  keep_free(facts.code.comments, facts.text.unit_lines);
}
