// A page shows of the tree only what its reader may want next, so that it stays small in a site of
// any size; the pages of contents have it whole.

#include "conv/htm/navigation.h"

#include <algorithm>
#include <utility>

#include "conv/atc/qualified_name.h"
#include "conv/htm/html_text.h"

namespace {

using V = gVltValue;

constexpr std::size_t many_siblings = 60;
constexpr std::size_t siblings_shown = 40;
constexpr std::size_t places_shown = 250;

std::string_view flag(bool value) {
  return value ? "1" : "";
}

// Arguments of templates may be longer than the column is high.
std::string cut(std::string_view title) {
  constexpr std::size_t longest = 60;
  if (title.size() <= longest)
    return std::string(title);
  std::size_t end = longest;
  while (end > 0 && (static_cast<unsigned char>(title[end]) & 0xc0) == 0x80)
    --end;
  return std::string(title.substr(0, end)) + "…";
}

} // namespace

gNavigation::gNavigation(gSite const & site, gContents const & contents, gScopes const & scopes)
    : site_(site),
      contents_(contents),
      scopes_(scopes) {
  for (int page = 0; page < site.pages.size(); ++page)
    titles_.push_back(Html::breakable(cut(title_of(page))));
}

// Below its scope a name needs no more than its last part.
std::string_view gNavigation::title_of(int page) const {
  gUnitRecord const & head = site_.head(page);
  bool const scoped = scopes_.around(site_.pages[page].first) >= 0;
  return scoped && Site::is_named(head) ? Atc::last_component(head) : Site::contents_title(head);
}

std::string gNavigation::crumbs(int page) const {
  gWay way = way_to(page);
  way.pop_back();
  return crumbs_along(way, title_of(page), "");
}

std::string gNavigation::crumbs(int above, std::string_view here, std::string_view root) const {
  return crumbs_along(above < 0 ? gWay() : way_to(above), here, root);
}

std::string gNavigation::crumbs_along(gWay const & way, std::string_view here,
                                      std::string_view root) const {
  std::string out;
  auto const add = [&](std::string const & file, std::string_view title) {
    std::string const href = std::string(root) + file;
    std::string const text = Html::escaped(title);
    gVltValues values;
    values.set(V::href, href).set(V::title, text);
    site_.rules.apply(gVltRule::crumb, values, out);
  };
  add("index.htm", site_.title);
  for (int const page : way)
    add(site_.addresses.file(page), title_of(page));
  std::string const text = Html::escaped(here);
  site_.rules.apply(gVltRule::crumb_here, gVltValues().set(V::title, text), out);
  return out;
}

// The names of scopes get shorter on the way up, so it ends.
gNavigation::gWay gNavigation::way_to(int page) const {
  int unit = site_.pages[page].first;
  if (!scopes_.is_in_order(unit))
    return site_.pages.tree().path(page);
  gWay way;
  for (; unit >= 0; unit = scopes_.around(unit))
    way.insert(way.begin(), site_.pages.of(unit));
  return way;
}

gNeighbour gNavigation::neighbour(int page) const {
  if (page < 0 || page >= site_.pages.size())
    return {};
  return {site_.addresses.file(page), Html::escaped(Site::contents_title(site_.head(page)))};
}

std::string gNavigation::tree(int page) const {
  gWay const way = page < 0 ? gWay() : way_to(page);
  return is_scoped(way) ? list(-1, {}, 0) + scope_list(way, 0) : list(-1, way, 0);
}

std::string gNavigation::list(int parent, gWay const & way, std::size_t level) const {
  auto const pages = site_.pages.tree().children(parent);
  return items({pages.begin(), pages.end()}, way, level, contents_.file(parent));
}

// The page at work stands in its list, also where others don't see it.
std::string gNavigation::scope_list(gWay const & way, std::size_t level) const {
  if (level == 0)
    return items({way[0]}, way, level, {});
  std::vector<int> pages;
  for (int const unit : scopes_.pages_in(site_.pages[way[level - 1]].first))
    pages.push_back(site_.pages.of(unit));
  if (level < way.size() && std::ranges::find(pages, way[level]) == pages.end())
    pages.push_back(way[level]);
  return items(pages, way, level, site_.addresses.file(way[level - 1]));
}

// Of very many those around the one on the way; `all` is where they all are.
std::string gNavigation::items(std::vector<int> const & pages, gWay const & way, std::size_t level,
                               std::string const & all) const {
  if (pages.empty())
    return {};
  std::size_t first = 0, end = pages.size();
  if (pages.size() > many_siblings) {
    auto const here = level < way.size() ? std::ranges::find(pages, way[level]) : pages.begin();
    auto const at = static_cast<std::size_t>(here - pages.begin()) % pages.size();
    first = std::min(at - std::min(at, siblings_shown / 2), pages.size() - siblings_shown);
    end = first + siblings_shown;
  }
  std::string inner;
  if (first > 0)
    add_more(all, first, inner);
  for (std::size_t i = first; i < end; ++i)
    add_item(pages[i], way, level, inner);
  if (end < pages.size())
    add_more(all, pages.size() - end, inner);
  std::string const depth = std::to_string(level + 1);
  std::string out;
  gVltValues values;
  values.set(V::items, inner).set(V::level, depth);
  site_.rules.apply(gVltRule::tree, values, out);
  return out;
}

void gNavigation::add_item(int page, gWay const & way, std::size_t level, std::string & out) const {
  bool const on_way = level < way.size() && way[level] == page;
  bool const is_here = on_way && level + 1 == way.size();
  std::string below;
  if (on_way)
    below = is_scoped(way) ? scope_list(way, level + 1) : list(page, way, level + 1);
  std::string const & text = titles_[static_cast<std::size_t>(page)];
  std::string const depth = std::to_string(level + 1);
  std::string const same = Site::count_of(static_cast<std::size_t>(site_.pages[page].same));
  gKind const & what = site_.kinds.of(site_.pages[page].first);
  gVltValues values;
  values.set(V::href, site_.addresses.file(page)).set(V::title, text).set(V::items, below);
  values.set(V::count, same);
  values.set(V::kind, what.word).set(V::kind_class, what.css).set(V::level, depth);
  values.set(V::current, flag(is_here)).set(V::open, flag(on_way && !is_here));
  site_.rules.apply(gVltRule::tree_item, what.selector, values, out);
}

void gNavigation::add_more(std::string const & href, std::size_t count, std::string & out) const {
  std::string const number = site_.number(count);
  gVltValues values;
  values.set(V::href, href).set(V::count, number);
  site_.rules.apply(gVltRule::tree_more, values, out);
}

void gPlaces::add_unit(int unit, int deeper) {
  if (row_.unit >= 0 && Site::joins(site_, row_, unit)) {
    ++row_.count;
    return;
  }
  finish_row();
  row_ = {unit, 1, {}};
  deeper_ = deeper;
}

void gPlaces::finish_row() {
  if (row_.unit < 0)
    return;
  gRow const row = std::exchange(row_, gRow());
  if (++count_ > places_shown)
    return;
  gUnitRecord const & record = site_.unit(row.unit);
  std::string const to = "#" + std::string(site_.addresses.anchor(row.unit));
  std::string const text = Html::breakable(cut(Site::contents_title(record)));
  std::string const depth = std::to_string(std::clamp(site_.pages.depth(row.unit) + deeper_, 1, 6));
  std::string const same = Site::count_of(row.count);
  gKind const & what = site_.kinds.of(row.unit);
  gVltValues values;
  values.set(V::href, to).set(V::title, text).set(V::level, depth).set(V::count, same);
  values.set(V::kind, what.word).set(V::kind_class, what.css).set(V::member, "1");
  site_.rules.apply(gVltRule::toc_item, what.selector, values, items_);
}

void gPlaces::add_headline(std::string_view anchor, std::string_view title, int level) {
  finish_row();
  if (++count_ > places_shown)
    return;
  std::string const to = "#" + std::string(anchor);
  std::string const depth = std::to_string(level);
  gVltValues values;
  values.set(V::href, to).set(V::title, title).set(V::level, depth);
  site_.rules.apply(gVltRule::toc_item, values, items_);
}

std::string gPlaces::take() {
  finish_row();
  std::string out;
  if (count_ > 1)
    site_.rules.apply(gVltRule::toc, gVltValues().set(V::items, items_), out);
  items_.clear();
  count_ = 0;
  return out;
}
