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

// "A::B<int>" is one of "A::B".
std::string_view template_of(gUnitRecord const & unit) {
  std::string_view const last = Atc::last_component(unit), name = unit.name;
  std::size_t const arguments = last.find('<');
  bool const special = unit.facts.has_mark("specialisation") && last.ends_with('>') &&
                       arguments != last.npos && arguments > 0 && !last.starts_with("operator");
  return special ? name.substr(0, name.size() - last.size() + arguments) : std::string_view();
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
    if (std::string_view const name = template_of(unit); !name.empty())
      specialisations_[name].push_back(i);
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

std::span<int const> gScopes::specialisations(int unit) const {
  auto const found = specialisations_.find(site_.unit(unit).name);
  return found == specialisations_.end() ? std::span<int const>()
                                         : std::span<int const>(found->second);
}
