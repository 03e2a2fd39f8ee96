// Every class has one home, so that the tree has as many lines as there are classes and bases.
// Lines are set from the last to the first, those below a class before itself; what gets too long
// or too deep moves to pages of its own.

#include "conv/htm/class_tree.h"

#include <algorithm>

#include "conv/atc/qualified_name.h"
#include "conv/htm/html_text.h"
#include "conv/htm/slug.h"

namespace {

using V = gVltValue;

constexpr std::size_t most_of_branch = 30000; // bytes that stand among others
constexpr std::size_t most_of_page = 75000;
constexpr std::size_t deepest = 24; // lists in each other
constexpr std::string_view folder = "_hierarchy/";

bool is_interface(gUnitRecord const & unit) {
  return unit.facts.kind == "interface" || unit.facts.kind == "dispinterface";
}

std::string sorted_by(std::string_view name) {
  return Vlb::to_lower(std::string(Atc::last_component(name)));
}

} // namespace

gClassTree::gClassTree(gSite const & site, gScopes const & scopes) : site_(site), scopes_(scopes) {
  find_classes();
  if (classes_.empty())
    return;
  add_lines(tops());
  for (std::size_t i = lines_.size(); i-- > 0;)
    set_line(lines_[i]);
  std::string const title = site.rules.setting("class_tree_title", "Class hierarchy");
  file_ = pages_[static_cast<std::size_t>(add_pages("_classes", title, top_lines_))].file;
  place_lines();
}

std::size_t gClassTree::enter(int unit, std::string name) {
  std::size_t const next = classes_.size();
  auto const [number, added] = unit >= 0
                                   ? [&] {
                                       auto const one = of_unit_.try_emplace(unit, next);
                                       return std::pair(one.first->second, one.second);
                                     }()
                                   : [&] {
                                       auto const one = of_name_.try_emplace(name, next);
                                       return std::pair(one.first->second, one.second);
                                     }();
  if (added) {
    classes_.emplace_back().unit = unit;
    classes_.back().name = std::move(name);
  }
  return number;
}

// The first of them is where the class is looked for.
void gClassTree::connect(std::size_t base, std::size_t derived) {
  classes_[base].below.push_back(derived);
  if (classes_[derived].has_home)
    return;
  classes_[derived].home = base;
  classes_[derived].has_home = true;
}

// Classes in front of interfaces, of which a class may have many.
void gClassTree::find_classes() {
  for (int i = 0; i < static_cast<int>(site_.document.units.size()); ++i) {
    if (site_.pages.of(i) < 0)
      continue;
    auto const derive_from = [&](bool interfaces) {
      for (int const base : site_.inheritance.bases(i))
        if (site_.pages.of(base) >= 0 && is_interface(site_.unit(base)) == interfaces) {
          std::size_t const above = enter(base, site_.unit(base).name);
          connect(above, enter(i, site_.unit(i).name));
        }
    };
    derive_from(is_interface(site_.unit(i)));
    for (std::string const & base : site_.inheritance.foreign_bases(i)) {
      std::size_t const above = enter(-1, base);
      connect(above, enter(i, site_.unit(i).name));
    }
    derive_from(!is_interface(site_.unit(i)));
  }
  for (gClass & one : classes_)
    std::ranges::stable_sort(one.below, {},
                             [this](std::size_t below) { return sorted_by(classes_[below].name); });
}

// Circles, which no compiler takes, begin somewhere.
std::vector<std::size_t> gClassTree::tops() {
  std::vector<std::size_t> found, open;
  std::vector<bool> reached(classes_.size());
  auto const reach_from = [&](std::size_t top) {
    found.push_back(top);
    for (open.assign(1, top); !open.empty();) {
      std::size_t const one = open.back();
      open.pop_back();
      if (reached[one])
        continue;
      reached[one] = true;
      for (std::size_t const below : classes_[one].below)
        if (classes_[below].has_home && classes_[below].home == one)
          open.push_back(below);
    }
  };
  for (std::size_t i = 0; i < classes_.size(); ++i)
    if (!classes_[i].has_home)
      reach_from(i);
  for (std::size_t i = 0; i < classes_.size(); ++i)
    if (!reached[i]) {
      classes_[i].has_home = false;
      reach_from(i);
    }
  std::ranges::stable_sort(found, {},
                           [this](std::size_t i) { return sorted_by(classes_[i].name); });
  return found;
}

void gClassTree::add_lines(std::vector<std::size_t> const & tops) {
  struct Open {
    std::size_t one;
    int parent;
  };
  std::vector<Open> open;
  for (auto top = tops.rbegin(); top != tops.rend(); ++top)
    open.push_back({*top, -1});
  while (!open.empty()) {
    Open const next = open.back();
    open.pop_back();
    gClass const & one = classes_[next.one];
    auto const number = static_cast<int>(lines_.size());
    gLine & line = lines_.emplace_back();
    line.one = next.one;
    line.parent = next.parent;
    if (next.parent < 0) {
      top_lines_.push_back(static_cast<std::size_t>(number));
    } else {
      gLine & above = lines_[static_cast<std::size_t>(next.parent)];
      above.below.push_back(static_cast<std::size_t>(number));
      line.at_home = one.has_home && one.home == above.one;
    }
    if (!line.at_home)
      continue;
    if (one.unit >= 0)
      homes_[one.unit] = static_cast<std::size_t>(number);
    line.id = "c-" + Slug::of(one.name);
    if (!taken_.insert(line.id).second)
      taken_.insert(line.id += "-" + std::to_string(number));
    for (auto below = one.below.rbegin(); below != one.below.rend(); ++below)
      open.push_back({*below, number});
  }
}

std::string gClassTree::items_of(gLine & line) {
  std::size_t bytes = 0;
  for (std::size_t const below : line.below) {
    gLine const & one = lines_[below];
    bytes += one.text.size();
    line.count += one.count + 1;
    line.depth = std::max(line.depth, one.depth + 1);
  }
  std::string out;
  if (bytes <= most_of_branch && line.depth < deepest) {
    for (std::size_t const below : line.below)
      out += std::exchange(lines_[below].text, {});
    return out;
  }
  gClass const & one = classes_[line.one];
  std::string const title =
      site_.rules.setting("class_tree_title", "Class hierarchy") + ": " + one.name;
  line.own_page = add_pages("_classes-" + Slug::of(one.name), title, line.below);
  line.depth = 0;
  std::string const href = "../" + pages_[static_cast<std::size_t>(line.own_page)].file;
  std::string const count = site_.number(line.count);
  site_.rules.apply(gVltRule::tree_more, gVltValues().set(V::href, href).set(V::count, count), out);
  return out;
}

// With its separator; none where the line above says the same.
std::string gClassTree::scope_of(gLine const & line) const {
  std::string const & name = classes_[line.one].name;
  std::string_view const scope = Atc::scope_of(name);
  if (line.parent >= 0 &&
      scope == Atc::scope_of(classes_[lines_[static_cast<std::size_t>(line.parent)].one].name))
    return {};
  return name.substr(0, name.size() - Atc::last_component(name).size());
}

void gClassTree::set_line(gLine & line) {
  gClass const & one = classes_[line.one];
  std::string const inner = items_of(line);
  std::string const title = Html::breakable(Atc::last_component(one.name));
  std::string const scope = Html::escaped(scope_of(line));
  bool const elsewhere = !line.at_home && !one.below.empty() && one.has_home;
  std::string const home = elsewhere ? Html::escaped(classes_[one.home].name) : std::string();
  std::string href, around;
  gVltValues values;
  values.set(V::title, title).set(V::scope, scope).set(V::items, inner).set(V::id, line.id);
  values.set(V::text, home);
  if (one.unit >= 0) {
    href = "../" + site_.addresses.href(one.unit);
    if (int const scope_unit = scopes_.around(one.unit); scope_unit >= 0 && !scope.empty())
      around = "../" + site_.addresses.href(scope_unit);
    gKind const & kind = site_.kinds.of(one.unit);
    if (kind.css != "class") // most are, and needn't say so
      values.set(V::kind, kind.word).set(V::kind_class, kind.css);
    values.set(V::deprecated, site_.unit(one.unit).facts.has_mark("deprecated") ? "1" : "");
  }
  values.set(V::href, href).set(V::target, around);
  std::string out;
  site_.rules.apply(gVltRule::class_item, values, out);
  line.text = std::move(out);
}

// The first of the pages that the lines fill.
int gClassTree::add_pages(std::string const & stem, std::string const & title,
                          std::vector<std::size_t> const & lines) {
  auto const first = static_cast<int>(pages_.size());
  for (std::size_t const line : lines) {
    std::string & text = lines_[line].text;
    if (static_cast<int>(pages_.size()) == first ||
        pages_.back().items.size() + text.size() > most_of_page) {
      std::string file = std::string(folder) + stem;
      for (std::size_t number = pages_.size() - static_cast<std::size_t>(first) + 1;
           !taken_.insert(Vlb::to_lower(file)).second; ++number)
        file = std::string(folder) + stem + "-" + std::to_string(number);
      pages_.push_back({file + ".htm", title, {}, first});
    }
    pages_.back().items += std::exchange(text, {});
    lines_[line].page = static_cast<int>(pages_.size()) - 1;
  }
  return first;
}

void gClassTree::place_lines() {
  for (gLine & line : lines_)
    if (line.page < 0 && line.parent >= 0)
      line.page = lines_[static_cast<std::size_t>(line.parent)].page;
}

std::string gClassTree::href(int unit) const {
  auto const found = homes_.find(unit);
  if (found == homes_.end())
    return {};
  gLine const & line = lines_[found->second];
  return pages_[static_cast<std::size_t>(line.page)].file + "#" + line.id;
}

void gClassTree::write(gPageWriter & writer, gNavigation const & navigation) const {
  for (gTreePage const & page : pages_) {
    std::string links;
    std::size_t number = 0;
    for (gTreePage const & other : pages_) {
      if (other.first != page.first)
        continue;
      std::string const shown = std::to_string(++number), href = "../" + other.file;
      gVltValues values;
      values.set(V::href, href).set(V::title, shown).set(V::current, &other == &page ? "1" : "");
      site_.rules.apply(gVltRule::index_link, values, links);
    }
    gPageFrame frame;
    frame.style = "classes";
    frame.file = page.file;
    frame.title = page.title;
    frame.crumbs = navigation.crumbs(-1, page.title, "../");
    std::string const title = Html::escaped(page.title);
    gVltValues values;
    values.set(V::title, title).set(V::items, page.items);
    bool const is_part = pages_[static_cast<std::size_t>(page.first)].file != file_;
    std::string const whole = is_part ? "../" + file_ : std::string();
    values.set(V::href, whole).set(V::text, number > 1 ? links : std::string());
    site_.rules.apply(gVltRule::class_page, values, frame.content);
    writer.write(frame);
  }
}
