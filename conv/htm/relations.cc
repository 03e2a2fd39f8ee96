// A method that is replaced very often says so in a number, and a base with very many members leads
// to its own page.

#include "conv/htm/relations.h"

#include <algorithm>

#include "conv/atc/qualified_name.h"
#include "conv/htm/html_text.h"
#include "conv/set/relation_text.h"

namespace {

using V = gVltValue;

constexpr std::size_t most_methods = 20; // of those that replace one
constexpr std::size_t most_members = 150;

} // namespace

void gRelations::add(std::string_view what, std::span<int const> methods, std::string & out) const {
  std::string items;
  std::size_t shown = 0;
  for (int const method : methods) {
    if (site_.pages.of(method) < 0)
      continue;
    if (++shown > most_methods)
      continue;
    gLinkEnd const end = setter_.link_to(method, {});
    gUnitRecord const & record = site_.unit(method);
    std::string const name =
        Html::escaped(record.facts.kind == "topic" ? Site::contents_title(record)
                                                   : std::string_view(record.name));
    std::string const scope = Html::escaped(Atc::scope_of(site_.unit(method)));
    gVltValues values;
    values.set(V::href, end.href).set(V::title, name).set(V::name, name).set(V::scope, scope);
    site_.rules.apply(gVltRule::relation_item, what, values, items);
  }
  if (shown == 0)
    return;
  std::string const more = shown > most_methods ? site_.number(shown - most_methods) : "";
  site_.rules.apply(gVltRule::relation, what, gVltValues().set(V::items, items).set(V::count, more),
                    out);
}

std::vector<int> gRelations::topics_of(int unit) const {
  std::vector<int> topics;
  for (std::string const & place : site_.unit(unit).facts.topics)
    if (int const topic = site_.document.find_label(place).unit;
        topic >= 0 && topic != unit && site_.unit(topic).facts.kind == "topic")
      topics.push_back(topic);
  return topics;
}

std::string gRelations::of(int method) const {
  gInheritance const & all = site_.inheritance;
  std::vector<int> implemented, replaced;
  for (int const other : all.overridden(method))
    (all.is_abstract(other) ? implemented : replaced).push_back(other);
  std::string out;
  add("implements", implemented, out);
  add("overrides", replaced, out);
  add(all.is_abstract(method) ? "implemented" : "overridden", all.overriders(method), out);
  add("topic", topics_of(method), out);
  return out;
}

std::string gRelations::inherited(int unit, int level) const {
  std::string out;
  std::size_t left = most_members;
  int const page = setter_.link_page();
  for (gInherited const & part : site_.inheritance.inherited(unit)) {
    std::vector<gRow> rows = Site::rows_of(site_, part.members);
    if (rows.empty())
      continue;
    std::size_t const all = rows.size();
    rows.resize(std::min(all, left));
    left -= rows.size();
    std::string const items = overview_.links(rows, page), number = site_.number(all);
    std::string const title = Html::escaped(site_.unit(part.from).name);
    std::string const more = all > rows.size() ? site_.number(all - rows.size()) : "";
    std::string const depth = std::to_string(level), href = setter_.link_to(part.from, {}).href;
    gVltValues values;
    values.set(V::items, items).set(V::title, title).set(V::href, href).set(V::level, depth);
    values.set(V::number, number).set(V::count, more);
    site_.rules.apply(gVltRule::inherited, values, out);
  }
  return out;
}

std::string gRelations::borrowed(int method, gNodeList const & body) const {
  int const source = site_.inheritance.explained_by(method);
  if (source < 0 || !site_.unit(method).summary.empty() || RelationText::says_something(body))
    return {};
  std::string const inner = setter_.set(RelationText::explanation(site_.document.text_of(source)));
  std::string const name = Html::escaped(site_.unit(source).name);
  std::string const href = setter_.link_to(source, {}).href;
  gVltValues values;
  values.set(V::text, inner).set(V::title, name).set(V::href, href);
  std::string out;
  site_.rules.apply(gVltRule::borrowed, values, out);
  return out;
}
