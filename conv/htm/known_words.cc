// A name with a capital or a "_" in it is seldom that of a local variable as well.

#include "conv/htm/known_words.h"

#include <algorithm>

#include "conv/atc/qualified_name.h"

namespace {

constexpr std::size_t shortest = 4;

bool looks_like_type(std::string_view word) {
  return word.size() >= shortest && std::ranges::any_of(word, [](char c) {
           return c == '_' || (Vlb::is_letter(c) && Vlb::lower(c) != c);
         });
}

bool is_type(gUnitRecord const & unit) {
  for (std::string_view const kind :
       {"class", "struct", "union", "enum", "enum class", "alias", "alias template", "typedef",
        "concept", "macro", "function macro", "interface", "record", "object", "enumeration"})
    if (unit.facts.kind == kind)
      return true;
  return false;
}

// What has the name of its class isn't another thing.
bool repeats_its_class(gUnitRecord const & unit) {
  return unit.facts.kind == "constructor" || unit.facts.kind == "destructor" ||
         unit.facts.kind == "deduction guide" || unit.facts.has_mark("specialisation");
}

} // namespace

gKnownWords::gKnownWords(gSite const & site) {
  for (int i = 0; i < static_cast<int>(site.document.units.size()); ++i) {
    gUnitRecord const & unit = site.unit(i);
    if (!unit.facts.known || unit.name.empty() || repeats_its_class(unit))
      continue;
    std::string_view const word = Atc::last_component(unit);
    if (!looks_like_type(word))
      continue;
    bool const sure = is_type(unit) && site.pages.of(i) >= 0;
    auto const [known, added] = units_.try_emplace(word, sure ? i : -1);
    if (!added)
      known->second = -1;
  }
}

// Most words don't even look like one that is known.
int gKnownWords::unit_of(std::string_view word) const {
  if (!looks_like_type(word))
    return -1;
  auto const found = units_.find(word);
  return found == units_.end() ? -1 : found->second;
}
