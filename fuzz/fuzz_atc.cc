// The intermediate code, with one included file: any bytes are read, and every question about the
// document is answered.

#include <cstdlib>

#include "conv/atc/encoding.h"
#include "conv/atc/reader.h"
#include "conv/set/enum_table.h"
#include "conv/set/relation_text.h"
#include "quiet_run.h"

namespace {

bool open_included(void * context, std::string const &, std::string & text) {
  text = *static_cast<std::string *>(context);
  return true;
}

void check(gDocument const & document, gBookRelations const & relations, int unit) {
  gUnitRecord const & record = document.units[unit];
  gUnitText text = document.text_of(unit);
  if (record.parent >= unit || !Atc::is_clean(plain_text(text.body) + record.summary))
    std::abort();
  static gVltRules const rules;
  EnumTable::set_into(record, rules, true, text.body);
  RelationText::set_into(document, relations, rules, unit, text.body);
  gTarget const target = document.find_name(unit, record.name);
  document.find_word(unit, record.declaration.substr(0, 20));
  if (!record.name.empty() && !target)
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  fuzz_one([&] {
    std::string const text(fuzz_text(data, size));
    std::size_t const cut = std::min(text.find("%%"), size);
    std::string included = text.substr(cut);
    gDocument document;
    gAtcReader().read(text.substr(0, cut), "fuzz.atc", open_included, &included, document);
    gBookRelations const relations(document);
    for (std::size_t i = 0; i < document.units.size(); ++i)
      check(document, relations, static_cast<int>(i));
  });
  return 0;
}
