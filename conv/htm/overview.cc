// Units on other pages always need the list, since nothing else on this page leads to them.

#include "conv/htm/overview.h"

#include <algorithm>

#include "conv/htm/html_text.h"

namespace {

using V = gVltValue;
constexpr std::size_t few = 2;    // units on the same page that need no list
constexpr std::size_t most = 600; // beyond them, the contents
} // namespace

std::string gOverview::of(int unit, int level) const {
  auto const children = site_.pages.units().children(unit);
  bool const elsewhere = std::ranges::any_of(children, [&](int child) {
    return unit < 0 || site_.pages.of(child) != site_.pages.of(unit);
  });
  if (children.empty() || (!elsewhere && children.size() <= few))
    return {};
  std::map<std::size_t, std::size_t> group_of;
  std::vector<std::vector<int>> groups;
  for (int const child : children.first(std::min(children.size(), most))) {
    auto const [at, is_new] = group_of.try_emplace(site_.kinds.index_of(child), groups.size());
    if (is_new)
      groups.emplace_back();
    groups[at->second].push_back(child);
  }
  int const page = unit < 0 ? -1 : site_.pages.of(unit);
  std::string out;
  for (auto const & group : groups)
    add_group(group, page, level, groups.size() > 1, out);
  if (children.size() > most) {
    std::string more;
    std::string const number = std::to_string(children.size() - most);
    gVltValues values;
    values.set(V::href, contents_.file(page)).set(V::count, number);
    site_.rules.apply(gVltRule::tree_more, values, more);
    site_.rules.apply(gVltRule::tree, gVltValues().set(V::items, more), out);
  }
  return out;
}

void gOverview::add_group(std::vector<int> const & units, int page, int level, bool titled,
                          std::string & out) const {
  std::string items;
  std::set<std::string> former;
  for (int const unit : units) {
    std::string id = site_.addresses.former_anchor(unit);
    add_item(unit, page, former.insert(id).second ? id : std::string(), items);
  }
  gKind const & kind = site_.kinds.of(units.front());
  std::string const depth = std::to_string(level);
  std::string const count = std::to_string(units.size());
  gVltValues values;
  values.set(V::items, items).set(V::level, depth).set(V::count, count);
  values.set(V::kind, kind.word).set(V::kind_class, kind.css);
  if (titled)
    values.set(V::title, kind.word);
  site_.rules.apply(gVltRule::overview, kind.selector, values, out);
}

void gOverview::add_item(int unit, int page, std::string const & id, std::string & out) const {
  gUnitRecord const & record = site_.unit(unit);
  std::string const to = site_.addresses.href(unit, page);
  std::string const text = Html::escaped(Site::contents_title(record));
  std::string const line = Html::escaped(record.summary);
  std::string const full = Html::escaped(record.name);
  std::string const within = Html::escaped(Site::scope_of(record.name));
  int const below = site_.pages.units().below(unit);
  std::string const number = below > 0 ? std::to_string(below) : std::string();
  gKind const & what = site_.kinds.of(unit);
  gVltValues values;
  values.set(V::href, to)
      .set(V::title, text)
      .set(V::summary, line)
      .set(V::name, full)
      .set(V::scope, within);
  values.set(V::kind, what.word).set(V::kind_class, what.css).set(V::count, number);
  values.set(V::id, id);
  site_.rules.apply(gVltRule::overview_item, what.selector, values, out);
}
