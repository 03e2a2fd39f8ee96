// A page is its units one behind the other. The text of each is read again from the intermediate
// code when its turn comes, so that the size of a site doesn't count.

#include "conv/htm/unit_pages.h"

#include <algorithm>

#include "conv/atc/qualified_name.h"
#include "conv/htm/html_text.h"
#include "conv/htm/member_groups.h"
#include "conv/htm/row_words.h"
#include "conv/htm/unit_head.h"
#include "conv/set/enum_table.h"
#include "conv/set/enumerators.h"
#include "conv/set/macro_variants.h"
#include "conv/set/relation_text.h"

namespace {

using V = gVltValue;

gNode const * find_source_link(gNodeList const & nodes) {
  for (gNode const & node : nodes)
    if (node.kind == gNodeKind::source_link)
      return &node;
  return nullptr;
}

} // namespace

// What a unit consists of, as finished texts.
struct gUnitPages::gParts {
  std::string title, subject, links, body, relations, notes, source, editor, repository;
};

gUnitPages::gUnitPages(gConversion & conversion, gSite & site, gColours const & colours,
                       gNavigation const & navigation, gContents const & contents,
                       gScopes const & scopes, gIncludes const & includes, gUses const & uses)
    : site_(site),
      writer_(conversion, site),
      setter_(site, colours),
      navigation_(navigation),
      overview_(site, contents, &scopes),
      relations_(site, setter_, overview_),
      scopes_(scopes),
      includes_(includes),
      uses_(uses),
      places_(site) {
  setter_.report_to(made_.reports);
  for (gSkippedRecord const & one : site_.document.skipped)
    ++skipped_[one.scope];
}

gMadePage gUnitPages::make(int page) {
  page_ = page;
  parts_.clear();
  plain_rows_.clear();
  short_rows_.clear();
  rows_are_brief_ = false;
  gPageFrame frame = set_page();
  if (PageParts::markup_of(frame.content) > gPageParts::most_markup && has_members_)
    frame = set_in_parts(std::move(frame));
  for (gPageFrame const & one : beside_)
    writer_.write(one);
  writer_.write(frame);
  std::ranges::sort(made_.units, {}, &gMadePage::Unit::unit);
  return std::exchange(made_, gMadePage());
}

gPageFrame gUnitPages::set_page() {
  gUnitRecord const & head = site_.head(page_);
  int const first = site_.pages[page_].first, end = site_.pages[page_].end;
  gKind const & kind = site_.kinds.of(first);
  setter_.begin_page(page_);
  gPageFrame frame;
  frame.style = "unit";
  frame.file = site_.addresses.file(page_);
  frame.title = head.title;
  frame.kind = kind.word;
  frame.summary = site_.summary_of(first);
  frame.kind_class = kind.css;
  told_.clear();
  texts_.clear();
  beside_.clear();
  made_.units.clear();
  listed_ = {};
  deeper_ = 0;
  add_unit(first, frame.content);
  has_members_ = first + 1 + site_.pages.units().below(first) == end && !listed_.groups.empty() &&
                 !listed_.groups[0].units.empty();
  if (has_members_)
    add_members(frame.content);
  else
    for (int unit = first + 1; unit < end; ++unit)
      add_unit(unit, frame.content);
  frame.crumbs = navigation_.crumbs(page_);
  frame.contents = navigation_.tree(page_);
  frame.on_page = places_.take();
  frame.previous = navigation_.previous(page_);
  frame.next = navigation_.next(page_);
  set_running_heads(frame, head.section);
  return frame;
}

void gUnitPages::add_with_below(int member, std::string & out) {
  for (int unit = member; unit <= member + site_.pages.units().below(member); ++unit)
    add_unit(unit, out);
}

// In the order of the list above them.
void gUnitPages::add_members(std::string & out) {
  std::string texts;
  deeper_ = 1;
  for (gListed::Group const & group : listed_.groups)
    for (int const member : group.units) {
      if (parts_.of(member))
        continue;
      std::size_t const before = texts.size();
      add_with_below(member, texts);
      if (std::string_view const text = std::string_view(texts).substr(before); !text.empty())
        texts_[member] = {PageParts::markup_of(text), PageParts::anchors_in(text)};
    }
  if (texts.empty())
    return;
  std::string const title = Members::title_of(site_, "details", site_.pages[page_].first);
  gVltValues values;
  values.set(V::title, title).set(V::id, "g-details").set(V::level, "2");
  site_.rules.apply(gVltRule::overview, "details", values, out);
  out += texts;
}

void gUnitPages::write_hierarchies(int unit) {
  std::string const title = Html::escaped(site_.unit(unit).title);
  for (gHierarchyPage const & hierarchy : setter_.take_hierarchies()) {
    gPageFrame frame;
    frame.style = "hierarchy";
    frame.file = hierarchy.file;
    frame.title = site_.unit(unit).title;
    frame.crumbs = navigation_.crumbs(site_.pages.of(unit), frame.title, "../");
    bool const cut = hierarchy.all > hierarchy.shown;
    std::string const shown = std::to_string(hierarchy.shown);
    std::string const all = cut ? std::to_string(hierarchy.all) : std::string();
    std::string const href = "../" + site_.addresses.href(unit);
    gVltValues values;
    values.set(V::title, title).set(V::items, hierarchy.items).set(V::href, href);
    values.set(V::count, shown).set(V::number, all);
    site_.rules.apply(gVltRule::hierarchy_page, values, frame.content);
    beside_.push_back(std::move(frame));
  }
}

void gUnitPages::set_running_heads(gPageFrame & frame, int section) {
  gSectionRecord const & record = site_.document.sections[static_cast<std::size_t>(section)];
  setter_.begin_unit(-1, 1);
  setter_.set(record.head_left, frame.head_left);
  setter_.set(record.head_right, frame.head_right);
  setter_.set(record.foot_left, frame.foot_left);
  setter_.set(record.foot_right, frame.foot_right);
}

void gUnitPages::set_parts(int number, gUnitText const & text, gParts & parts) {
  setter_.set(text.title, parts.title);
  setter_.set(text.subject, parts.subject);
  for (gNode const & node : text.body)
    if (node.kind != gNodeKind::link_line) {
      setter_.set(node, parts.body);
    } else {
      setter_.set(node, parts.links);
      gNode const * const source = find_source_link(node.children);
      if (source && parts.source.empty()) {
        parts.source = setter_.source_href(source->param(0), source->param(1));
        parts.editor = setter_.editor_href(source->param(0), source->param(1));
        parts.repository = setter_.repository_href(source->param(0), source->param(1));
      }
    }
  parts.body += relations_.borrowed(number, text.body);
  parts.relations = relations_.of(number) + includes_.of(number) + uses_.of(number);
  parts.notes = setter_.take_notes();
}

// The places of members are listed in their groups.
void gUnitPages::add_place(int unit) {
  if (deeper_ > 0) {
    setter_.take_headlines();
    return;
  }
  bool const begins_page = site_.pages.begins(unit);
  // A list of overloads that all have the name of the page says nothing.
  if (!site_.pages.heads(unit) || (!begins_page && !site_.pages.units().children(unit).empty()))
    places_.add_unit(unit);
  std::vector<gHeadline> const headlines = setter_.take_headlines();
  for (gHeadline const & headline : headlines)
    if (begins_page || headline.level == 1)
      places_.add_headline(headline.anchor, headline.title, headline.level + (begins_page ? 0 : 1));
}

std::string gUnitPages::friends_of(int unit, int level, gOverview::gMemberRows const & rows) const {
  std::vector<std::string> named;
  for (std::string_view const one : scopes_.friends().strange(unit))
    named.push_back(Html::escaped(one));
  return overview_.friends(scopes_.friends().of(unit), named, setter_.link_page(), level, rows);
}

// What stands below the unit on its page, or what its namespace holds.
gListed gUnitPages::overview_of(int unit, int level) {
  auto const within = scopes_.of(unit);
  auto const rows = [this](int member, gRowPlace const & place) { return row_of(member, place); };
  if (!within.empty() && site_.pages.units().children(unit).empty())
    return overview_.within(within, site_.pages.of(unit), level, rows);
  gListed listed = overview_.of(unit, level, rows);
  listed.text +=
      friends_of(unit, level, rows) + relations_.inherited(unit, level) +
      overview_.group("specialisation", scopes_.specialisations(unit), setter_.link_page(), level);
  if (auto const members = scopes_.members(unit); !members.empty()) {
    gListed more = overview_.within(members, site_.pages.of(unit), level, rows);
    listed.text += more.text;
    std::ranges::move(more.groups, std::back_inserter(listed.groups));
  }
  return listed;
}

// Nothing is known of it that its row doesn't show.
bool gUnitPages::is_told(int unit) const {
  gUnitRecord const & record = site_.unit(unit);
  gInheritance const & all = site_.inheritance;
  if (!record.facts.known || !record.facts.values.empty() || !record.facts.variants.empty() ||
      site_.pages.units().below(unit) > 0 || site_.pages.of(unit) != page_ ||
      all.explained_by(unit) >= 0 || !all.overridden(unit).empty() || !all.overriders(unit).empty())
    return false;
  bool const same_condition =
      record.parent >= 0 && site_.unit(record.parent).facts.condition == record.facts.condition;
  return (same_condition || record.facts.condition.empty()) &&
         Declaration::enumerators_of(record).empty() && scopes_.specialisations(unit).empty();
}

gMemberRow gUnitPages::row_of(int unit, gRowPlace place) {
  place.is_plain = plain_rows_.contains(unit);
  if (short_rows_.contains(unit) || parts_.of(unit))
    return row_of_part(unit, place);
  gMemberRow row = setter_.row_of(unit, place);
  row.is_all = row.is_all && is_told(unit);
  if (!row.is_all)
    return row;
  gUnitText const text = site_.document.text_of(unit);
  auto const words = RowWords::of(text);
  row.is_all = words.has_value();
  if (!row.is_all)
    return row;
  told_.emplace(unit, gSearchIndex::text_of(site_.unit(unit), text.body));
  row.summary = setter_.words_of(unit, *words);
  return row;
}

// The anchor of a unit, none of one that begins a page.
std::string gUnitPages::place_of(int unit) const {
  return site_.pages.begins(unit) ? std::string() : std::string(site_.addresses.anchor(unit));
}

// Each value of an enumeration is found by itself, where it stands in the table.
void gUnitPages::enter_search(int unit, std::string text) {
  gMadePage::Unit & found = made_.units.emplace_back(unit, std::move(text));
  gUnitRecord const & record = site_.unit(unit);
  for (gValueFact const & value : record.facts.values)
    found.values.push_back({unit, value.name, setter_.made_anchor(value.name), {}});
  if (record.facts.values.empty())
    for (gEnumerator & value : Declaration::enumerators_of(record))
      found.values.push_back({unit, std::move(value.name), place_of(unit), {}});
}

// After the unit that the page begins with, which may have more to show than members.
void gUnitPages::add_groups(gListed listed) {
  constexpr std::size_t most_places = 150; // of more, the groups alone
  listed_ = std::move(listed);
  std::size_t all = 0;
  for (gListed::Group const & group : listed_.groups)
    all += group.units.size();
  for (gListed::Group const & group : listed_.groups) {
    if (!group.anchor.empty())
      places_.add_headline(group.anchor, group.title, 1);
    for (std::size_t i = 0; i < group.units.size() && all <= most_places; ++i)
      places_.add_unit(group.units[i], 1);
  }
}

void gUnitPages::add_unit(int unit, std::string & out) {
  gUnitRecord const & record = site_.unit(unit);
  if (auto const told = told_.find(unit); told != told_.end())
    return enter_search(unit, std::move(told->second));
  gUnitText text = site_.document.text_of(unit);
  std::string said = gSearchIndex::text_of(record, text.body);
  EnumTable::set_into(record, site_.rules, true, text.body);
  MacroVariants::set_into(record, site_.rules, text.body);
  bool const begins_page = site_.pages.begins(unit);
  // Levels may leave out numbers; headings of a page must not.
  int const level = begins_page ? 1 : std::clamp(site_.pages.depth(unit) + 1 + deeper_, 2, 6);
  setter_.begin_unit(unit, level);
  gParts parts;
  set_parts(unit, text, parts);
  add_place(unit);
  gUnitHead const head = UnitHead::of(site_, setter_, includes_, unit, text);
  if (parts.title.empty())
    Html::escape(record.title, parts.title);
  if (!head.title.empty())
    parts.title = head.title;
  std::string const depth = std::to_string(level), line = std::to_string(record.source_line);
  gListed listed = overview_of(unit, std::min(level + 1, 6));
  std::string const overview = std::move(listed.text);
  if (begins_page)
    add_groups(std::move(listed));
  std::string const name = Html::escaped(record.name), plain = Html::escaped(record.title);
  std::string const scope = Html::escaped(Atc::scope_of(record));
  std::string const summary = Html::escaped(record.summary);
  std::string const path = Html::escaped(site_.sources.shown(record.path));
  std::string const style = Html::escaped(record.style), wintype = Html::escaped(record.wintype);
  std::string aliases;
  if (std::string_view const alias = site_.addresses.alias(unit); !alias.empty())
    site_.rules.apply(gVltRule::bkmk, gVltValues().set(V::id, alias), aliases);
  gKind const & kind = site_.kinds.of(unit);
  gVltValues values;
  values.set(V::id, site_.addresses.anchor(unit)).set(V::aliases, aliases).set(V::level, depth);
  values.set(V::kind, kind.word).set(V::kind_class, kind.css).set(V::style, style);
  values.set(V::name, name).set(V::scope, scope).set(V::title, parts.title);
  values.set(V::subject, parts.subject).set(V::links, parts.links).set(V::body, parts.body);
  values.set(V::notes, parts.notes)
      .set(V::relations, parts.relations)
      .set(V::overview, overview)
      .set(V::summary, summary);
  values.set(V::include, head.include).set(V::condition, head.condition);
  values.set(V::deprecated, head.deprecated).set(V::since, head.since);
  values.set(V::repository, parts.repository);
  values.set(V::source, parts.source).set(V::editor, parts.editor).set(V::wintype, wintype);
  values.set(V::member, begins_page ? "" : "1").set(V::path, path).set(V::line, line);
  values.set(V::named, Site::is_named(record) ? "1" : "").set(V::target, plain);
  site_.rules.apply(gVltRule::unit, record.style, values, out);
  if (auto const found = skipped_.find(record.name); begins_page && found != skipped_.end())
    out += Pages::skipped_note(site_, record.name.empty() ? 0 : found->second);
  enter_search(unit, std::move(said));
  write_hierarchies(unit);
}
