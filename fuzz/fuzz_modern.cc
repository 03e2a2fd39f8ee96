// A source and its comments in the modern dialect: each comment is bound to at most one declaration
// or left out, and what is bound exists.

#include <cstdlib>

#include "ana/cmdpar/keywords.h"
#include "ana/read/read_modern.h"
#include "app/options/run_input.h"
#include "quiet_run.h"

namespace {

void expect(bool good) {
  if (!good)
    std::abort();
}

void check(gModernFile const & file, int lines) {
  auto const units = static_cast<int>(file.facts.text.units.size());
  std::vector<int> bound(file.facts.text.units.size(), 0);
  for (cRef<gCodeElem> const & one : file.facts.code.elements) {
    expect(!one->names.empty() && one->loc.line() > 0 && one->loc.line() <= lines);
    expect(one->text < units);
    if (one->text >= 0)
      expect(++bound[static_cast<std::size_t>(one->text)] == 1);
  }
  for (gUnitFacts const & one : file.facts.text.units)
    expect(one.place.line > 0 && one.place.line <= lines);
  for (gCommentFacts const & one : file.facts.code.comments)
    expect(one.place.line > 0 && one.last_line >= one.place.line && one.last_line <= lines);
  for (gSkippedLines const & one : file.skipped)
    expect(one.first > 0 && one.last >= one.first);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  fuzz_one([&] {
    gUEKeywords.build_keywords(Vapp::standard_run_input());
    std::string_view const text = fuzz_text(data, size);
    int lines = 1;
    for (char const c : text)
      lines += c == '\n';
    gModernInput input;
    input.macros.collect(text);
    gTableTemplates const tables;
    gModernReader reader(input, tables);
    for (char const * name : {"fuzz.h", "fuzz.pas"})
      check(reader.read(gSrcFile(gPathstring(name), "", 1), text), lines);
  });
  return 0;
}
