// A page shows of the tree only what its reader may want next, so that it stays small in a site of
// any size; the pages of contents have it whole.

#include "conv/htm/navigation.h"

#include <algorithm>
#include <utility>

#include "conv/htm/html_text.h"

namespace {

using V = gVltValue;

constexpr std::size_t many_siblings = 60;
constexpr std::size_t siblings_shown = 20;
constexpr std::size_t places_shown = 250;

std::string_view flag(bool value) {
  return value ? "1" : "";
}

} // namespace

std::string gNavigation::crumbs(int above, std::string_view here, std::string_view root) const {
  std::string out;
  auto const add = [&](std::string const & file, std::string_view title) {
    std::string const href = std::string(root) + file;
    std::string const text = Html::escaped(title);
    gVltValues values;
    values.set(V::href, href).set(V::title, text);
    site_.rules.apply(gVltRule::crumb, values, out);
  };
  add("index.htm", site_.title);
  for (int const page : site_.pages.tree().path(above))
    add(site_.addresses.file(page), Site::contents_title(site_.head(page)));
  std::string const text = Html::escaped(here);
  site_.rules.apply(gVltRule::crumb_here, gVltValues().set(V::title, text), out);
  return out;
}

gNeighbour gNavigation::neighbour(int page) const {
  if (page < 0 || page >= site_.pages.size())
    return {};
  return {site_.addresses.file(page), Html::escaped(Site::contents_title(site_.head(page)))};
}

std::string gNavigation::tree(int page) const {
  return list(-1, site_.pages.tree().path(page), 0);
}

std::string gNavigation::list(int parent, std::vector<int> const & path, std::size_t level) const {
  auto const pages = site_.pages.tree().children(parent);
  if (pages.empty())
    return {};
  std::size_t first = 0, end = pages.size();
  if (pages.size() > many_siblings) {
    std::size_t const at =
        level < path.size()
            ? static_cast<std::size_t>(std::ranges::lower_bound(pages, path[level]) - pages.begin())
            : 0;
    first = std::min(at - std::min(at, siblings_shown / 2), pages.size() - siblings_shown);
    end = first + siblings_shown;
  }
  std::string items;
  if (first > 0)
    add_more(parent, first, items);
  for (std::size_t i = first; i < end; ++i)
    add_item(pages[i], path, level, items);
  if (end < pages.size())
    add_more(parent, pages.size() - end, items);
  std::string const depth = std::to_string(level + 1);
  std::string out;
  gVltValues values;
  values.set(V::items, items).set(V::level, depth);
  site_.rules.apply(gVltRule::tree, values, out);
  return out;
}

void gNavigation::add_item(int page, std::vector<int> const & path, std::size_t level,
                           std::string & out) const {
  bool const on_path = level < path.size() && path[level] == page;
  bool const is_here = on_path && level + 1 == path.size();
  std::string const below = on_path ? list(page, path, level + 1) : std::string();
  std::string const text = Html::escaped(Site::contents_title(site_.head(page)));
  std::string const depth = std::to_string(level + 1);
  std::string const same = Site::count_of(static_cast<std::size_t>(site_.pages[page].same));
  gKind const & what = site_.kinds.of(site_.pages[page].first);
  gVltValues values;
  values.set(V::href, site_.addresses.file(page)).set(V::title, text).set(V::items, below);
  values.set(V::count, same);
  values.set(V::kind, what.word).set(V::kind_class, what.css).set(V::level, depth);
  values.set(V::current, flag(is_here)).set(V::open, flag(on_path && !is_here));
  site_.rules.apply(gVltRule::tree_item, what.selector, values, out);
}

void gNavigation::add_more(int parent, std::size_t count, std::string & out) const {
  std::string const number = site_.number(count);
  gVltValues values;
  values.set(V::href, contents_.file(parent)).set(V::count, number);
  site_.rules.apply(gVltRule::tree_more, values, out);
}

void gPlaces::add_unit(int unit) {
  if (row_.unit >= 0 && Site::joins(site_, row_, unit)) {
    ++row_.count;
    return;
  }
  finish_row();
  row_ = {unit, 1, {}};
}

void gPlaces::finish_row() {
  if (row_.unit < 0)
    return;
  gRow const row = std::exchange(row_, gRow());
  if (++count_ > places_shown)
    return;
  gUnitRecord const & record = site_.unit(row.unit);
  std::string const to = "#" + std::string(site_.addresses.anchor(row.unit));
  std::string const text = Html::escaped(Site::contents_title(record));
  std::string const depth = std::to_string(std::clamp(site_.pages.depth(row.unit), 1, 6));
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
