// Kinds make the groups, but for some: what isn't meant for users is one group, and so are static
// methods.

#include "conv/htm/member_groups.h"

#include <algorithm>
#include <tuple>

#include "conv/atc/qualified_name.h"
#include "conv/htm/html_text.h"
#include "conv/htm/slug.h"
#include "conv/set/signature.h"

namespace {

constexpr std::string_view headed = "headed "; // by the author

// What isn't meant for users stands open on the page of such a thing.
std::string group_of(gSite const & site, int number) {
  gUnitRecord const & unit = site.unit(number);
  gKind const & kind = site.kinds.of(number);
  if (site.is_detail(number) && !site.is_detail(unit.parent < 0 ? number : unit.parent))
    return "detail";
  if (!unit.facts.heading.empty())
    return std::string(headed) + unit.facts.heading;
  if (kind.selector == "destructor")
    return "constructor";
  if (kind.selector == "method" && (unit.facts.has_mark("static") || unit.facts.has_mark("class")))
    return "static";
  return kind.selector;
}

// The groups as readers look for them; others stand behind these.
constexpr std::string_view group_order[] = {
    "enumerator", "constructor", "method", "static",   "function", "operator", "friend",
    "property",   "event",       "signal", "slot",     "member",   "enum",     "type",
    "alias",      "concept",     "var",    "constant", "macro"};

// Groups with a heading stand behind constructors, but for values: those are looked up seldom.
std::size_t rank_of_group(std::string_view group, std::string_view kind) {
  if (group == "detail")
    return std::size(group_order) + 1;
  bool const values = kind == "constant" || kind == "macro" || kind == "var";
  if (group.starts_with(headed))
    group = values ? kind : group_order[1];
  return static_cast<std::size_t>(std::ranges::find(group_order, group) - std::begin(group_order));
}

int rank_of_access(std::string const & access) {
  return access.ends_with("private") ? 2 : access.ends_with("protected") ? 1 : 0;
}

// Members of one access stand together, and overloads with the first of them.
void sort_members(gSite const & site, std::vector<int> & units) {
  std::unordered_map<std::string_view, std::size_t> first;
  for (int const unit : units)
    first.try_emplace(site.unit(unit).name, first.size());
  std::ranges::stable_sort(units, {}, [&](int number) {
    gUnitRecord const & unit = site.unit(number);
    return std::pair(rank_of_access(unit.facts.access), first[unit.name]);
  });
}

} // namespace

std::vector<gMemberGroup> Members::groups_of(gSite const & site, std::span<int const> units) {
  std::vector<gMemberGroup> groups;
  std::unordered_map<std::string, std::size_t> known;
  for (int const unit : units) {
    if (site.pages.of(unit) < 0)
      continue;
    std::string const name = group_of(site, unit);
    auto const [group, is_new] = known.try_emplace(name, groups.size());
    if (is_new)
      groups.push_back({name, {}});
    groups[group->second].units.push_back(unit);
  }
  // What only heirs see stands last, also under a heading.
  std::ranges::stable_sort(groups, {}, [&](gMemberGroup const & one) {
    bool const is_headed = one.name.starts_with(headed);
    bool const hidden = is_headed && std::ranges::all_of(one.units, [&](int unit) {
                          return rank_of_access(site.unit(unit).facts.access) > 0;
                        });
    std::string_view const kind = site.kinds.of(one.units.front()).selector;
    return std::tuple(hidden, rank_of_group(one.name, kind), is_headed);
  });
  for (gMemberGroup & group : groups)
    sort_members(site, group.units);
  return groups;
}

std::string Members::title_of(gSite const & site, std::string const & group, int unit) {
  if (group.starts_with(headed))
    return Html::escaped(group.substr(headed.size()));
  std::string title;
  std::string const & word = site.kinds.of(unit).word;
  site.rules.apply(gVltRule::group, group, gVltValues().set(gVltValue::title, word), title);
  return title;
}

std::string Members::place_of(std::string const & group) {
  return group.starts_with(headed) ? Slug::of(group) + "-" + Slug::hash({group}) : group;
}

std::string_view Members::common_scope(gSite const & site, std::span<int const> units) {
  std::unordered_map<std::string_view, std::size_t> counts;
  std::string_view best;
  for (int const unit : units) {
    std::string_view const scope = Atc::scope_of(site.unit(unit));
    if (!site.is_detail(unit) && ++counts[scope] > counts[best])
      best = scope;
  }
  return best;
}

std::vector<std::vector<gStretch>> Members::differences(gSite const & site,
                                                        std::span<int const> overloads) {
  constexpr std::size_t most = 60; // of more nobody compares the parameters
  std::vector<std::vector<gStretch>> result(overloads.size());
  if (overloads.size() < 2 || overloads.size() > most)
    return result;
  std::vector<std::vector<gParameter>> all;
  std::unordered_map<std::string_view, std::size_t> owners;
  for (int const unit : overloads)
    all.push_back(Declaration::parameters_of(site.unit(unit)));
  for (auto const & parameters : all) {
    std::set<std::string_view> types;
    for (gParameter const & one : parameters)
      types.insert(one.type);
    for (std::string_view const type : types)
      ++owners[type];
  }
  for (std::size_t i = 0; i < all.size(); ++i) {
    for (gParameter const & one : all[i])
      if (owners[one.type] < overloads.size())
        result[i].push_back(one.place);
    if (result[i].size() == all[i].size())
      result[i].clear();
  }
  return result;
}
