// Units on other pages always need the list, since nothing else on this page leads to them.

#include "conv/htm/overview.h"

#include <algorithm>
#include <unordered_map>

#include "conv/atc/qualified_name.h"
#include "conv/htm/html_text.h"

// Members on the page of what they belong to.
struct gMember {
  gRow row;
  std::string signature;
};
struct gMembers {
  std::string name; // of the group
  std::vector<gMember> rows;
};

namespace {

using V = gVltValue;

constexpr std::size_t few = 2;     // rows for units on the same page that need no list
constexpr std::size_t most = 700;  // rows for units on other pages; of more, there are ranges
constexpr std::size_t plenty = 60; // rows that are found more easily under headings

// What most of the titles begin with, such as the name of a library.
std::string common_start(gSite const & site, std::vector<gRow> const & rows) {
  std::string start;
  for (;;) {
    std::map<char, std::size_t> next;
    for (gRow const & row : rows) {
      std::string_view const title = Site::contents_title(site.unit(row.unit));
      if (title.size() > start.size() + 1 && title.starts_with(start))
        ++next[title[start.size()]];
    }
    auto const best = std::ranges::max_element(next, {}, [](auto const & n) { return n.second; });
    if (best == next.end() || best->second * 2 <= rows.size())
      return start;
    start += best->first;
  }
}

// How the members of a class are grouped: by their kinds, but for some. What isn't meant for users
// is one group, but on the page of such a thing.
std::string group_of(gSite const & site, int number) {
  gUnitRecord const & unit = site.unit(number);
  gKind const & kind = site.kinds.of(number);
  if (site.is_detail(number) && !site.is_detail(unit.parent < 0 ? number : unit.parent))
    return "detail";
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

std::size_t rank_of_group(std::string_view group) {
  if (group == "detail")
    return std::size(group_order) + 1;
  return static_cast<std::size_t>(std::ranges::find(group_order, group) - std::begin(group_order));
}

int rank_of_access(std::string const & access) {
  return access.ends_with("private") ? 2 : access.ends_with("protected") ? 1 : 0;
}

// Members of one access stand together, and overloads with the first of them.
void sort_members(gSite const & site, gMembers & group) {
  std::unordered_map<std::string_view, std::size_t> first;
  for (gMember const & one : group.rows)
    first.try_emplace(site.unit(one.row.unit).name, first.size());
  std::ranges::stable_sort(group.rows, {}, [&](gMember const & one) {
    gUnitRecord const & unit = site.unit(one.row.unit);
    return std::pair(rank_of_access(unit.facts.access), first[unit.name]);
  });
}

// The first letter of a title, behind the common start.
std::string initial_of(std::string_view title, std::string_view start) {
  std::string initial;
  if (title.starts_with(start) && title.size() > start.size()) {
    title.remove_prefix(start.size());
    initial = start;
  }
  std::size_t const first = std::min(title.find_first_not_of("_~"), title.size());
  char const letter = first < title.size() ? title[first] : '#';
  return initial + (Vlb::is_letter(letter) ? Vlb::upper(letter) : '#');
}

} // namespace

std::string gOverview::of(int unit, int level, gSignatures const & signatures) const {
  auto const children = site_.pages.units().children(unit);
  int const page = site_.pages.of(unit);
  bool const elsewhere =
      std::ranges::any_of(children, [&](int child) { return site_.pages.of(child) != page; });
  std::vector<gRow> const rows = Site::rows_of(site_, children);
  if (rows.empty() || (!elsewhere && rows.size() <= few))
    return {};
  if (!elsewhere && page >= 0)
    return members({children.begin(), children.end()}, level, signatures);
  if (elsewhere && rows.size() > most)
    if (std::string const ranges = contents_.ranges(page); !ranges.empty()) {
      std::string out;
      site_.rules.apply(gVltRule::overview, "part", gVltValues().set(V::items, ranges), out);
      return out;
    }
  return lists(rows, page, level);
}

std::string gOverview::within(std::span<int const> units, int page, int level) const {
  std::vector<gRow> rows = Site::rows_of(site_, units);
  std::size_t const all = rows.size();
  if (all > most) {
    std::stable_partition(rows.begin(), rows.end(),
                          [](gRow const & row) { return !row.summary.empty(); });
    rows.resize(most);
    std::ranges::sort(rows, {}, &gRow::unit);
  }
  std::string out = lists(rows, page, level);
  if (all > rows.size()) {
    std::string const left = site_.number(all - rows.size());
    site_.rules.apply(gVltRule::overview, "more", gVltValues().set(V::count, left), out);
  }
  return out;
}

// Overloads have a row each, since their signatures tell them apart.
std::string gOverview::members(std::vector<int> const & units, int level,
                               gSignatures const & signatures) const {
  std::vector<gMembers> groups;
  for (int const unit : units) {
    if (site_.pages.of(unit) < 0)
      continue;
    std::string const name = group_of(site_, unit);
    auto group = std::ranges::find(groups, name, &gMembers::name);
    if (group == groups.end())
      group = groups.insert(groups.end(), {name, {}});
    std::string signature = signatures(unit);
    if (signature.empty() && !group->rows.empty() &&
        Site::joins(site_, group->rows.back().row, unit))
      ++group->rows.back().row.count;
    else
      group->rows.push_back({{unit, 1, site_.summary_of(unit)}, std::move(signature)});
  }
  std::ranges::stable_sort(groups, {},
                           [](gMembers const & one) { return rank_of_group(one.name); });
  std::string out;
  std::set<std::string> former;
  for (gMembers & group : groups) {
    sort_members(site_, group);
    bool const mixed = groups.size() == 1 || group.name == "detail";
    std::string items, last;
    for (gMember const & one : group.rows) {
      std::string const id = site_.addresses.former_anchor(one.row.unit);
      add_item(one.row, site_.pages.of(one.row.unit), mixed,
               former.insert(id).second ? id : std::string(), items, one.signature,
               site_.unit(one.row.unit).name == last);
      last = site_.unit(one.row.unit).name;
    }
    add_members(group, items, level, out);
  }
  return out;
}

void gOverview::add_members(gMembers const & group, std::string const & items, int level,
                            std::string & out) const {
  gKind const & kind = site_.kinds.of(group.rows.front().row.unit);
  std::string const count = site_.number(group.rows.size()), depth = std::to_string(level);
  gVltValues values;
  values.set(V::items, items).set(V::level, depth).set(V::count, count);
  values.set(V::kind, kind.word).set(V::kind_class, kind.css).set(V::title, kind.word);
  values.set(V::signature, "1");
  site_.rules.apply(gVltRule::overview, group.name, values, out);
}

std::string gOverview::group(std::string_view selector, std::span<int const> units, int page,
                             int level) const {
  std::vector<gRow> const rows = Site::rows_of(site_, units);
  std::string out;
  if (rows.empty())
    return out;
  std::string const inner = links(rows, page), depth = std::to_string(level);
  std::string const count = site_.number(rows.size());
  gVltValues values;
  values.set(V::items, inner).set(V::level, depth).set(V::count, count).set(V::title, count);
  site_.rules.apply(gVltRule::overview, selector, values, out);
  return out;
}

// What isn't meant for users stands behind what is.
std::string gOverview::lists(std::vector<gRow> const & rows, int page, int level) const {
  int const head = page >= 0 ? site_.pages[page].first : -1;
  bool const in_detail = head >= 0 && site_.is_detail(head);
  bool const in_aside = head >= 0 && site_.is_aside(head);
  std::vector<gRow> open, detail, aside;
  for (gRow const & row : rows)
    (!in_detail && site_.is_detail(row.unit) ? detail
     : !in_aside && site_.is_aside(row.unit) ? aside
                                             : open)
        .push_back(row);
  return plain_lists(open, page, level) + folded("detail", detail, page) +
         folded("aside", aside, page);
}

std::string gOverview::folded(std::string_view selector, std::vector<gRow> const & rows,
                              int page) const {
  std::string out;
  if (rows.empty())
    return out;
  std::string const inner = items(rows, page), count = site_.number(rows.size());
  site_.rules.apply(gVltRule::overview, selector,
                    gVltValues().set(V::items, inner).set(V::count, count), out);
  return out;
}

std::string gOverview::plain_lists(std::vector<gRow> const & rows, int page, int level) const {
  std::map<std::size_t, std::size_t> group_of;
  std::vector<std::vector<gRow>> groups;
  for (gRow const & row : rows) {
    auto const [at, is_new] = group_of.try_emplace(site_.kinds.index_of(row.unit), groups.size());
    if (is_new)
      groups.emplace_back();
    groups[at->second].push_back(row);
  }
  std::string out;
  bool const elsewhere = page < 0 || (!rows.empty() && site_.pages.of(rows[0].unit) != page);
  if (groups.size() > 1 || rows.size() <= plenty || !elsewhere) {
    for (auto const & group : groups)
      out += list(group, page, level, groups.size() > 1);
    return out;
  }
  std::string const depth = std::to_string(level);
  for (auto const & [title, part] : parts_of(rows)) {
    std::string const shown = Html::escaped(title), inner = items(part, page, false);
    gVltValues values;
    values.set(V::items, inner).set(V::level, depth).set(V::title, shown);
    site_.rules.apply(gVltRule::overview, "part", values, out);
  }
  return out;
}

// By what the names stand in; those that stand in nothing by their first letters if they are many.
gOverview::gParts gOverview::parts_of(std::vector<gRow> const & rows) const {
  std::vector<gRow> plain;
  for (gRow const & row : rows)
    if (Atc::scope_of(site_.unit(row.unit)).empty())
      plain.push_back(row);
  std::string const start = common_start(site_, plain);
  gParts parts;
  for (gRow const & row : rows) {
    gUnitRecord const & record = site_.unit(row.unit);
    std::string title(Atc::scope_of(record));
    if (title.empty() && plain.size() > plenty)
      title = initial_of(Site::contents_title(record), start);
    parts[title].push_back(row);
  }
  return parts;
}

std::string gOverview::items(std::span<gRow const> rows, int page, bool kinds) const {
  std::string out;
  std::set<std::string> former;
  for (gRow const & row : rows) {
    std::string id = site_.addresses.former_anchor(row.unit);
    add_item(row, page, kinds, former.insert(id).second ? id : std::string(), out);
  }
  return out;
}

std::string gOverview::links(std::span<gRow const> rows, int page) const {
  std::string out;
  for (gRow const & row : rows)
    add_item(row, page, true, {}, out);
  return out;
}

std::string gOverview::list(std::vector<gRow> const & rows, int page, int level,
                            bool titled) const {
  std::string const inner = items(rows, page, !titled);
  gKind const & kind = site_.kinds.of(rows.front().unit);
  std::string const depth = std::to_string(level), count = site_.number(rows.size());
  gVltValues values;
  values.set(V::items, inner).set(V::level, depth).set(V::count, count);
  values.set(V::kind, kind.word).set(V::kind_class, kind.css);
  if (titled)
    values.set(V::title, kind.word);
  std::string out;
  site_.rules.apply(gVltRule::overview, kind.selector, values, out);
  return out;
}

void gOverview::add_item(gRow const & row, int page, bool kinds, std::string const & id,
                         std::string & out, std::string const & signature, bool again) const {
  gUnitRecord const & record = site_.unit(row.unit);
  std::string const to = site_.addresses.href(row.unit, page);
  std::string const text = Html::escaped(Site::contents_title(record));
  std::string const line = Html::escaped(row.summary), full = Html::escaped(record.name);
  std::string const within = Html::escaped(Atc::scope_of(record));
  int const below = site_.pages.units().below(row.unit);
  std::string const number = below > 0 ? site_.number(static_cast<std::size_t>(below)) : "";
  std::string const same = Site::count_of(row.count);
  gKind const & what = site_.kinds.of(row.unit);
  gVltValues values;
  values.set(V::href, to).set(V::title, text).set(V::summary, line).set(V::name, full);
  values.set(V::scope, within);
  if (kinds)
    values.set(V::kind, what.word).set(V::kind_class, what.css);
  values.set(V::number, number).set(V::count, same).set(V::id, id);
  values.set(V::named, Site::is_named(record) ? "1" : "").set(V::signature, signature);
  values.set(V::mark, again ? "1" : "");
  values.set(V::deprecated, record.facts.has_mark("deprecated") ? "1" : "");
  if (!signature.empty() && record.facts.access != "public")
    values.set(V::access, record.facts.access);
  site_.rules.apply(gVltRule::overview_item, what.selector, values, out);
}
