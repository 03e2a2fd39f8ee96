// Units on other pages always need the list, since nothing else on this page leads to them.

#include "conv/htm/overview.h"

#include <algorithm>

#include "conv/atc/qualified_name.h"
#include "conv/htm/html_text.h"

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

// How the members of a class are grouped: by their kinds, but for some.
std::string group_of(gUnitRecord const & unit, gKind const & kind) {
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
  return static_cast<std::size_t>(std::ranges::find(group_order, group) - std::begin(group_order));
}

int rank_of_access(std::string const & access) {
  return access.ends_with("private") ? 2 : access.ends_with("protected") ? 1 : 0;
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
  struct Row {
    gRow row;
    std::string signature;
  };
  struct Group {
    std::string name;
    std::vector<Row> rows;
  };
  std::vector<Group> groups;
  for (int const unit : units) {
    if (site_.pages.of(unit) < 0)
      continue;
    gUnitRecord const & record = site_.unit(unit);
    std::string const name = group_of(record, site_.kinds.of(unit));
    auto group = std::ranges::find(groups, name, &Group::name);
    if (group == groups.end())
      group = groups.insert(groups.end(), {name, {}});
    std::string signature = signatures(unit);
    if (signature.empty() && !group->rows.empty() &&
        Site::joins(site_, group->rows.back().row, unit))
      ++group->rows.back().row.count;
    else
      group->rows.push_back({{unit, 1, record.summary}, std::move(signature)});
  }
  std::ranges::stable_sort(groups, {}, [](Group const & one) { return rank_of_group(one.name); });
  std::string out;
  std::set<std::string> former;
  std::string const depth = std::to_string(level);
  for (Group & group : groups) {
    std::ranges::stable_sort(group.rows, {}, [&](Row const & one) {
      return rank_of_access(site_.unit(one.row.unit).facts.access);
    });
    std::string items;
    for (Row const & one : group.rows) {
      std::string const id = site_.addresses.former_anchor(one.row.unit);
      add_item(one.row, site_.pages.of(one.row.unit), groups.size() == 1,
               former.insert(id).second ? id : std::string(), items, one.signature);
    }
    gKind const & kind = site_.kinds.of(group.rows.front().row.unit);
    std::string const count = site_.number(group.rows.size());
    gVltValues values;
    values.set(V::items, items).set(V::level, depth).set(V::count, count);
    values.set(V::kind, kind.word).set(V::kind_class, kind.css).set(V::title, kind.word);
    values.set(V::signature, "1");
    site_.rules.apply(gVltRule::overview, group.name, values, out);
  }
  return out;
}

std::string gOverview::lists(std::vector<gRow> const & rows, int page, int level) const {
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
                         std::string & out, std::string const & signature) const {
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
  if (!signature.empty() && record.facts.access != "public")
    values.set(V::access, record.facts.access);
  site_.rules.apply(gVltRule::overview_item, what.selector, values, out);
}
