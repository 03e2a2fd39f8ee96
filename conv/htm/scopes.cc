// Names tell what stands where, so a script may sort a document as it likes.

#include "conv/htm/scopes.h"

#include <algorithm>

#include "conv/atc/qualified_name.h"

namespace {

bool is_scope(gUnitRecord const & unit) {
  for (std::string_view const kind :
       {"namespace", "module", "unit", "program", "library", "package"})
    if (unit.facts.kind == kind)
      return true;
  return false;
}

} // namespace

gScopes::gScopes(gSite const & site) : site_(site) {
  for (gUnitRecord const & unit : site.document.units)
    if (is_scope(unit))
      within_.try_emplace(unit.name);
  for (int i = 0; i < static_cast<int>(site.document.units.size()); ++i) {
    gUnitRecord const & unit = site.unit(i);
    if (!unit.facts.known || site.pages.of(i) < 0)
      continue;
    auto const scope = within_.find(Atc::scope_of(unit));
    if (scope != within_.end() && !unit.name.empty())
      scope->second.push_back(i);
  }
}

std::span<int const> gScopes::of(int unit) const {
  if (!is_scope(site_.unit(unit)))
    return {};
  return within_.at(site_.unit(unit).name);
}
