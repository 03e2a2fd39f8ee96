// Names tell what stands where, so a script may sort a document as it likes.

#include "conv/htm/scopes.h"

#include <algorithm>

#include "conv/atc/qualified_name.h"

namespace {

bool is_name_space(gUnitRecord const & unit) {
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

gScopes::gScopes(gSite const & site)
    : site_(site),
      friends_(site.document, [&site](int unit) { return site.pages.of(unit) >= 0; }) {
  for (gUnitRecord const & unit : site.document.units)
    if (is_name_space(unit))
      within_.try_emplace(unit.name);
  for (int i = 0; i < static_cast<int>(site.document.units.size()); ++i) {
    gUnitRecord const & unit = site.unit(i);
    if (!unit.facts.known || site.pages.of(i) < 0)
      continue;
    for (std::string const & topic : unit.facts.topics)
      if (int const owner = site.document.find_label(topic).unit;
          owner >= 0 && owner != i && owner != site.pages.units().parent(i))
        members_[owner].push_back(i);
    if (std::string_view const name = template_of(unit); !name.empty())
      specialisations_[name].push_back(i);
    if (!unit.name.empty()) // texts have none
      names_.try_emplace(unit.name, i);
    if (site.pages.begins(i) && !unit.name.empty() && (is_name_space(unit) || is_class_like(unit)))
      heads_.try_emplace(unit.name, i);
  }
  for (int i = 0; i < static_cast<int>(site.document.units.size()); ++i) {
    gUnitRecord const & unit = site.unit(i);
    if (!unit.facts.known || unit.name.empty() || site.pages.of(i) < 0)
      continue;
    auto const scope = within_.find(Atc::scope_of(unit));
    if (scope != within_.end() && !names_.contains(template_of(unit)))
      scope->second.push_back(i);
  }
  for (int page = 0; page < site.pages.size(); ++page)
    enter_page(site.pages[page].first);
  for (auto & [scope, units] : pages_)
    std::stable_partition(units.begin(), units.end(), [&](int one) { return is_scope(one); });
}

void gScopes::enter_page(int unit) {
  int const scope = around(unit);
  if (scope < 0 || !template_of(site_.unit(unit)).empty() ||
      (site_.is_detail(unit) && !site_.is_detail(scope)))
    return;
  pages_[scope].push_back(unit);
}

bool gScopes::is_scope(int unit) const {
  return site_.unit(unit).facts.known && is_name_space(site_.unit(unit));
}

int gScopes::around(int unit) const {
  gUnitRecord const & record = site_.unit(unit);
  if (!record.facts.known || record.name.empty())
    return -1;
  auto const found = heads_.find(Atc::scope_of(record));
  return found == heads_.end() || found->second == unit ? -1 : found->second;
}

std::span<int const> gScopes::pages_in(int scope) const {
  auto const found = pages_.find(scope);
  return found == pages_.end() ? std::span<int const>() : std::span<int const>(found->second);
}

std::span<int const> gScopes::of(int unit) const {
  if (!is_name_space(site_.unit(unit)))
    return {};
  return within_.at(site_.unit(unit).name);
}

std::span<int const> gScopes::members(int topic) const {
  auto const found = members_.find(topic);
  return found == members_.end() ? std::span<int const>() : std::span<int const>(found->second);
}

std::span<int const> gScopes::specialisations(int unit) const {
  gUnitRecord const & record = site_.unit(unit);
  auto const found = specialisations_.find(record.name);
  bool const first =
      is_class_like(record) || (names_.contains(record.name) && names_.at(record.name) == unit);
  return found == specialisations_.end() || !first ? std::span<int const>()
                                                   : std::span<int const>(found->second);
}
