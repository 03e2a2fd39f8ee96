// Units on other pages always need the list, since nothing else on this page leads to them.

#include "conv/htm/overview.h"

#include <algorithm>
#include <unordered_map>

#include "conv/atc/qualified_name.h"
#include "conv/htm/html_text.h"
#include "conv/htm/member_groups.h"
#include "conv/htm/page_parts.h"

namespace {

using V = gVltValue;

constexpr std::size_t few = 2;     // rows for units on the same page that need no list
constexpr std::size_t most = 700;  // rows for units on other pages; of more, there are ranges
constexpr std::size_t plenty = 60; // rows that are found more easily under headings
constexpr std::size_t most_of_group = 100;   // such as specialisations
constexpr std::size_t most_signatures = 150; // of what a namespace holds

bool is_routine(std::string_view kind) {
  return kind == "function" || kind == "operator" || kind == "friend" || kind == "method";
}

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

gListed gOverview::of(int unit, int level, gMemberRows const & signatures) const {
  auto const children = site_.pages.units().children(unit);
  int const page = site_.pages.of(unit);
  bool const elsewhere =
      std::ranges::any_of(children, [&](int child) { return site_.pages.of(child) != page; });
  std::vector<gRow> const rows = Site::rows_of(site_, children);
  if (rows.empty() || (!elsewhere && rows.size() <= few))
    return {};
  if (!elsewhere && page >= 0)
    return members(children, level, signatures);
  gListed out;
  if (elsewhere && rows.size() > most)
    if (std::string const ranges = contents_.ranges(page); !ranges.empty()) {
      site_.rules.apply(gVltRule::overview, "part", gVltValues().set(V::items, ranges), out.text);
      return out;
    }
  out.text = fitting_lists(rows, {rows.size(), 0}, page, level, false);
  return out;
}

// Those with a text come first where there isn't room for all. How long addresses are is known only
// when they are set.
std::string gOverview::fitting_lists(std::vector<gRow> rows, gRoom room, int page, int level,
                                     bool titled) const {
  std::size_t const most_bytes =
      gPageParts::most_markup - std::min(room.taken, gPageParts::most_markup / 2);
  std::size_t const all = rows.size();
  std::string out;
  while (true) {
    if (rows.size() > room.rows) {
      std::stable_partition(rows.begin(), rows.end(),
                            [](gRow const & row) { return !row.summary.empty(); });
      rows.resize(room.rows);
      std::ranges::sort(rows, {}, &gRow::unit);
    }
    out = lists(rows, page, level, titled);
    std::size_t const bytes = PageParts::markup_of(out);
    if (bytes <= most_bytes || rows.size() <= few)
      break;
    room.rows = rows.size() * most_bytes / bytes;
  }
  std::string const left = site_.number(all - rows.size());
  if (all > rows.size())
    site_.rules.apply(gVltRule::overview, "more", gVltValues().set(V::count, left), out);
  return out;
}

// Routines that aren't too many have a row each, since their signatures tell them apart.
gListed gOverview::within(std::span<int const> units, int page, int level,
                          gMemberRows const & signatures) const {
  gListed out;
  bool const in_detail = page >= 0 && site_.is_detail(site_.pages[page].first);
  std::vector<int> others, routines;
  for (int const unit : units) {
    bool const aside = !in_detail && (site_.is_detail(unit) || site_.is_aside(unit));
    (is_routine(site_.kinds.of(unit).selector) && !aside ? routines : others).push_back(unit);
  }
  if (routines.size() > most_signatures) {
    others.assign(units.begin(), units.end());
    routines.clear();
  }
  for (gMemberGroup const & group : Members::groups_of(site_, routines))
    add_heading(group, level, false, member_items(group, {}, false, page, signatures), out);
  std::size_t const taken = PageParts::markup_of(out.text);
  out.text.insert(0, fitting_lists(Site::rows_of(site_, others), {most, taken}, page, level,
                                   !routines.empty()));
  return out;
}

gListed gOverview::members(std::span<int const> units, int level,
                           gMemberRows const & signatures) const {
  std::vector<gMemberGroup> const groups = Members::groups_of(site_, units);
  std::string_view const scope = Members::common_scope(site_, units);
  int const page = site_.pages.of(units.front());
  gListed out;
  for (gMemberGroup const & group : groups) {
    bool const mixed = groups.size() == 1 || group.name == "detail";
    add_heading(group, level, true, member_items(group, scope, mixed, page, signatures), out);
  }
  return out;
}

// Overloads have a row each; what has no signature is told from its namesakes by nothing.
std::string gOverview::member_items(gMemberGroup const & group, std::string_view scope, bool mixed,
                                    int page, gMemberRows const & signatures) const {
  std::string out;
  auto const & units = group.units;
  for (std::size_t begin = 0, end = 0; begin < units.size(); begin = end) {
    std::string const & name = site_.unit(units[begin]).name;
    for (end = begin + 1; end < units.size() && site_.unit(units[end]).name == name;)
      ++end;
    auto const namesakes = std::span(units).subspan(begin, end - begin);
    auto const differing = Members::differences(site_, namesakes);
    gRow row;
    gMemberRow plain;
    for (std::size_t i = 0; i < namesakes.size(); ++i) {
      int const unit = namesakes[i];
      bool const elsewhere = !scope.empty() && Atc::scope_of(site_.unit(unit)) != scope;
      gMemberRow const shown = signatures(unit, {elsewhere, differing[i], false});
      if (!shown.signature.empty()) {
        add_member(unit, shown, mixed, i > 0, out);
      } else {
        row = {row.unit < 0 ? unit : row.unit, row.unit < 0 ? 1 : row.count + 1, row.summary};
        if (row.summary.empty())
          row.summary = site_.summary_of(unit);
        if (row.count == 1) {
          plain.details = shown.details;
          plain.id = shown.id;
          plain.is_brief = shown.is_brief;
        } else if (!shown.id.empty()) {
          site_.rules.apply(gVltRule::bkmk, gVltValues().set(V::id, shown.id), plain.places);
        }
        plain.places += shown.places;
      }
    }
    if (row.unit >= 0)
      add_item(row, page, mixed, plain.id, out, plain);
  }
  return out;
}

void gOverview::add_heading(gMemberGroup const & group, int level, bool on_page,
                            std::string const & items, gListed & out) const {
  int const first = group.units.front();
  gKind const & kind = site_.kinds.of(first);
  std::string const place = Members::place_of(group.name);
  gListed::Group heading{"", Members::title_of(site_, group.name, first), place, {}};
  // Other lists on the page may have groups of the same kind.
  bool const titled = !heading.title.empty();
  if (titled && (!on_page || site_.pages.begins(site_.pages.units().parent(first))))
    heading.anchor = "g-" + place;
  std::string const count = site_.number(group.units.size()), depth = std::to_string(level);
  gVltValues values;
  values.set(V::items, items).set(V::level, depth).set(V::count, count);
  values.set(V::kind, kind.word).set(V::kind_class, kind.css).set(V::title, heading.title);
  values.set(V::id, heading.anchor).set(V::signature, "1");
  site_.rules.apply(gVltRule::overview, group.name, values, out.text);
  if (on_page)
    heading.units = group.units;
  out.groups.push_back(std::move(heading));
}

void gOverview::add_member(int unit, gMemberRow const & row, bool kinds, bool again,
                           std::string & out) const {
  gUnitRecord const & record = site_.unit(unit);
  gKind const & what = site_.kinds.of(unit);
  std::string id(row.is_all ? site_.addresses.anchor(unit) : std::string_view());
  std::string aliases = row.places;
  if (std::string_view const alias = site_.addresses.alias(unit); row.is_all && !alias.empty())
    site_.rules.apply(gVltRule::bkmk, gVltValues().set(V::id, alias), aliases);
  std::string const text =
      row.summary.empty() ? Html::escaped(site_.summary_of(unit)) : row.summary;
  std::string const path = Html::escaped(record.path.substr(record.path.rfind('/') + 1));
  std::string const line = std::to_string(record.source_line);
  gVltValues values;
  values.set(V::id, id).set(V::aliases, aliases).set(V::summary, text);
  values.set(V::signature, row.signature).set(V::template_head, row.template_head);
  if (row.is_all)
    values.set(V::source, row.source).set(V::path, path).set(V::line, line);
  if (kinds)
    values.set(V::kind, what.word).set(V::kind_class, what.css);
  values.set(V::mark, again ? "1" : "");
  values.set(V::deprecated, record.facts.has_mark("deprecated") ? "1" : "");
  if (record.facts.access != "public")
    values.set(V::access, record.facts.access);
  site_.rules.apply(gVltRule::overview_item, what.selector, values, out);
}

std::string gOverview::group(std::string_view selector, std::span<int const> units, int page,
                             int level) const {
  std::vector<gRow> rows = Site::rows_of(site_, units);
  std::string out;
  if (rows.empty())
    return out;
  std::string const count = site_.number(rows.size());
  std::size_t const left = rows.size() - std::min(rows.size(), most_of_group);
  rows.resize(rows.size() - left);
  std::string const inner = links(rows, page);
  std::string const depth = std::to_string(level);
  gVltValues values;
  values.set(V::items, inner).set(V::level, depth).set(V::count, count).set(V::title, count);
  site_.rules.apply(gVltRule::overview, selector, values, out);
  if (std::string const more = site_.number(left); left > 0)
    site_.rules.apply(gVltRule::overview, "more", gVltValues().set(V::count, more), out);
  return out;
}

std::string gOverview::friends(std::span<int const> units, std::span<std::string const> named,
                               int page, int level, gMemberRows const & signatures) const {
  constexpr std::string_view selector = "friends_of";
  gMemberGroup routines{"friend", {}};
  std::vector<int> others;
  for (int const unit : units)
    (is_routine(site_.kinds.of(unit).selector) ? routines.units : others).push_back(unit);
  std::string inner = member_items(routines, {}, false, page, signatures) +
                      links(Site::rows_of(site_, others), page);
  for (std::string const & one : named)
    site_.rules.apply(gVltRule::overview_item, selector, gVltValues().set(V::signature, one),
                      inner);
  std::string out;
  std::string const depth = std::to_string(level);
  if (!inner.empty())
    site_.rules.apply(gVltRule::overview, selector,
                      gVltValues().set(V::items, inner).set(V::level, depth), out);
  return out;
}

// What isn't meant for users stands behind what is.
std::string gOverview::lists(std::vector<gRow> const & rows, int page, int level,
                             bool titled) const {
  int const head = page >= 0 ? site_.pages[page].first : -1;
  bool const in_detail = head >= 0 && site_.is_detail(head);
  bool const in_aside = head >= 0 && site_.is_aside(head);
  std::vector<gRow> open, detail, aside;
  for (gRow const & row : rows)
    (!in_detail && site_.is_detail(row.unit) ? detail
     : !in_aside && site_.is_aside(row.unit) ? aside
                                             : open)
        .push_back(row);
  return plain_lists(open, page, level, titled) + folded("detail", detail, page) +
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

std::string gOverview::plain_lists(std::vector<gRow> const & rows, int page, int level,
                                   bool titled) const {
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
      out += list(group, page, level, titled || groups.size() > 1);
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

// What a header or a part of it holds: readers look for functions elsewhere than for macros.
std::string gOverview::counts_below(int unit) const {
  std::map<std::size_t, std::size_t> counts;
  for (int one = unit + 1; one <= unit + site_.pages.units().below(unit); ++one)
    if (site_.unit(one).facts.known)
      ++counts[site_.kinds.index_of(one)];
  return counts_of(counts);
}

std::string gOverview::counts_within(int scope) const {
  std::map<std::size_t, std::size_t> counts;
  for (int const one : scopes_->of(scope))
    ++counts[site_.kinds.index_of(one)];
  return counts_of(counts);
}

std::string gOverview::counts_of(std::map<std::size_t, std::size_t> const & counts) const {
  std::vector<std::pair<std::size_t, std::size_t>> sorted(counts.begin(), counts.end());
  std::ranges::stable_sort(sorted, std::ranges::greater(),
                           [](auto const & one) { return one.second; });
  std::string out;
  for (auto const & [kind, count] : sorted) {
    std::string const number = site_.number(count);
    out += out.empty() ? "" : ", ";
    site_.rules.apply(gVltRule::kinds, site_.kinds.all()[kind].selector,
                      gVltValues().set(V::count, number), out);
  }
  return out;
}

// Units of Pascal have names that others in the same list may have, too.
std::string gOverview::folder_of(int unit) const {
  gUnitRecord const & record = site_.unit(unit);
  if (record.facts.kind != "unit")
    return {};
  std::string_view const path = site_.sources.shown(record.path);
  std::size_t const end = path.rfind('/');
  return end == path.npos ? std::string() : Html::escaped(path.substr(0, end));
}

std::string gOverview::items(std::span<gRow const> rows, int page, bool kinds) const {
  std::string out;
  std::set<std::string> former;
  std::map<std::string_view, int> names;
  for (gRow const & row : rows)
    ++names[Site::contents_title(site_.unit(row.unit))];
  for (gRow const & row : rows) {
    std::string id = site_.addresses.former_anchor(row.unit);
    gMemberRow shown;
    if (names[Site::contents_title(site_.unit(row.unit))] > 1)
      shown.folder = folder_of(row.unit);
    add_item(row, page, kinds, former.insert(id).second ? id : std::string(), out, shown);
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
  std::string const title =
      titled ? Members::title_of(site_, kind.selector, rows.front().unit) : std::string();
  values.set(V::title, title);
  std::string out;
  site_.rules.apply(gVltRule::overview, kind.selector, values, out);
  return out;
}

void gOverview::add_item(gRow const & row, int page, bool kinds, std::string const & id,
                         std::string & out, gMemberRow const & shown) const {
  gUnitRecord const & record = site_.unit(row.unit);
  std::string const to =
      shown.details.empty() ? site_.addresses.href(row.unit, page) : shown.details;
  std::string const text = Html::escaped(Site::contents_title(record));
  std::string line = Html::escaped(row.summary);
  std::string const full = Html::escaped(record.name);
  std::string const within = Html::escaped(Atc::scope_of(record));
  int const below = site_.pages.units().below(row.unit);
  std::string const number = below > 0 ? site_.number(static_cast<std::size_t>(below)) : "";
  std::string const same = Site::count_of(row.count);
  gKind const & what = site_.kinds.of(row.unit);
  if (line.empty() && below > 0 && !record.facts.known)
    line = counts_below(row.unit);
  else if (line.empty() && scopes_)
    line = counts_within(row.unit);
  gVltValues values;
  values.set(V::href, to).set(V::title, text).set(V::summary, line).set(V::name, full);
  values.set(V::scope, within).set(V::aliases, shown.places).set(V::text, shown.folder);
  if (kinds)
    values.set(V::kind, what.word).set(V::kind_class, what.css);
  values.set(V::number, number).set(V::count, same).set(V::id, id);
  values.set(V::named, Site::is_named(record) ? "1" : "");
  values.set(V::deprecated, record.facts.has_mark("deprecated") ? "1" : "");
  std::string_view const selector = shown.is_brief ? std::string_view("brief") : what.selector;
  site_.rules.apply(gVltRule::overview_item, selector, values, out);
}
