// A list with all that stands below it fits on one page, or its longer branches get pages of their
// own; a list that is itself too long is cut into groups.

#include "conv/htm/contents.h"

#include <algorithm>

#include "conv/htm/html_text.h"

namespace {

using V = gVltValue;

constexpr int whole_tree = 400;    // entries that stand on a page together
constexpr int short_branch = 20;   // entries that stay below their parent in a longer list
constexpr std::size_t group = 200; // entries of a part of a long list

std::string stem(std::string const & file) {
  return file.substr(0, file.rfind('.'));
}

} // namespace

gContents::gContents(gSite const & site) : site_(site) {
  taken_.insert("contents.htm");
  plan(-1, "contents.htm");
}

std::string gContents::unique(std::string name) {
  std::string file = name + ".htm";
  for (int number = 2; !taken_.insert(Vlb::to_lower(file)).second; ++number)
    file = name + "-" + std::to_string(number) + ".htm";
  return file;
}

bool gContents::stands_inline(int page, std::size_t siblings) const {
  return siblings <= group && site_.pages.tree().below(page) <= short_branch;
}

void gContents::plan(int parent, std::string const & file) {
  auto const & tree = site_.pages.tree();
  std::size_t const count = tree.children(parent).size();
  std::size_t const index = pages_.size();
  std::string title;
  if (parent >= 0)
    title = site_.head(parent).title;
  pages_.push_back({file, title, parent, 0, count, {}});
  listed_[parent] = index;
  if (tree.below(parent) <= whole_tree)
    return;
  if (count > group)
    plan_groups(index);
  else
    plan_below(parent, 0, count);
}

void gContents::plan_groups(std::size_t page) {
  int const parent = pages_[page].parent;
  auto const children = site_.pages.tree().children(parent);
  std::string const base = stem(pages_[page].file);
  for (std::size_t first = 0; first < children.size(); first += group) {
    std::size_t const end = std::min(first + group, children.size());
    std::string const file = unique(base + "-" + stem(site_.addresses.file(children[first])));
    pages_[page].groups.push_back(pages_.size());
    std::string title = range_of(children[first], children[end - 1]);
    if (!pages_[page].title.empty())
      title.insert(0, pages_[page].title + ": ");
    pages_.push_back({file, std::move(title), parent, first, end, {}});
    plan_below(parent, first, end);
  }
}

void gContents::plan_below(int parent, std::size_t first, std::size_t end) {
  auto const children = site_.pages.tree().children(parent);
  for (std::size_t i = first; i < end; ++i)
    if (!stands_inline(children[i], end - first))
      plan(children[i], unique("contents-" + stem(site_.addresses.file(children[i]))));
}

std::string const & gContents::file(int parent) const {
  // What stands inline is listed where its next listed ancestor is.
  for (; parent >= 0; parent = site_.pages.tree().parent(parent))
    if (auto const found = listed_.find(parent); found != listed_.end())
      return pages_[found->second].file;
  return pages_.front().file;
}

std::string gContents::ranges(int parent) const {
  auto const found = listed_.find(parent);
  bool const grouped = found != listed_.end() && !pages_[found->second].groups.empty();
  return grouped ? group_items(pages_[found->second]) : std::string();
}

std::string gContents::list(gContentsPage const & page) const {
  if (!page.groups.empty())
    return list_groups(page);
  auto const children = site_.pages.tree().children(page.parent);
  bool const whole = site_.pages.tree().below(page.parent) <= whole_tree;
  return list_pages(children.subspan(page.first, page.end - page.first), whole, 1);
}

std::string gContents::list_pages(std::span<int const> pages, bool whole, int level) const {
  std::string inner;
  std::string const depth = std::to_string(level);
  for (int const page : pages) {
    auto const children = site_.pages.tree().children(page);
    bool const here = whole || !listed_.contains(page);
    std::string below;
    if (!children.empty() && here) {
      below = list_pages(children, true, level + 1);
    } else if (!children.empty()) {
      std::string const number =
          site_.number(static_cast<std::size_t>(site_.pages.tree().below(page)));
      std::string more;
      gVltValues values;
      values.set(V::href, pages_[listed_.at(page)].file).set(V::count, number);
      site_.rules.apply(gVltRule::tree_more, values, more);
      site_.rules.apply(gVltRule::tree, gVltValues().set(V::items, more), below);
    }
    std::string const text = Html::escaped(Site::contents_title(site_.head(page)));
    std::string const same = Site::count_of(static_cast<std::size_t>(site_.pages[page].same));
    gKind const & what = site_.kinds.of(site_.pages[page].first);
    gVltValues values;
    values.set(V::href, site_.addresses.file(page)).set(V::title, text).set(V::items, below);
    values.set(V::count, same);
    values.set(V::kind, what.word).set(V::kind_class, what.css).set(V::level, depth);
    site_.rules.apply(gVltRule::tree_item, what.selector, values, inner);
  }
  std::string out;
  gVltValues values;
  values.set(V::items, inner).set(V::level, depth);
  site_.rules.apply(gVltRule::tree, values, out);
  return out;
}

std::string gContents::range_of(int first, int last) const {
  auto const name = [this](int page) {
    gUnitRecord const & head = site_.head(page);
    return Site::is_named(head) ? head.name : head.title;
  };
  return name(first) + " – " + name(last);
}

bool gContents::is_part(gContentsPage const & page) const {
  return page.end - page.first < site_.pages.tree().children(page.parent).size();
}

bool gContents::is_plain(gContentsPage const & page) const {
  auto const children = site_.pages.tree().children(page.parent);
  return is_part(page) &&
         std::ranges::all_of(children.subspan(page.first, page.end - page.first),
                             [&](int child) { return site_.pages.tree().below(child) == 0; });
}

std::string gContents::group_items(gContentsPage const & page) const {
  auto const children = site_.pages.tree().children(page.parent);
  std::string out;
  for (std::size_t const index : page.groups) {
    gContentsPage const & part = pages_[index];
    std::string const text = Html::escaped(range_of(children[part.first], children[part.end - 1]));
    gVltValues values;
    values.set(V::href, part.file).set(V::title, text).set(V::level, "1");
    site_.rules.apply(gVltRule::tree_item, values, out);
  }
  return out;
}

std::string gContents::list_groups(gContentsPage const & page) const {
  std::string const inner = group_items(page);
  std::string out;
  gVltValues values;
  values.set(V::items, inner).set(V::level, "1");
  site_.rules.apply(gVltRule::tree, values, out);
  return out;
}
