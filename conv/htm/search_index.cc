// Names, scopes and what is shown of a hit come from the records; only texts and the values of
// enumerations are gathered while the pages are made.

#include "conv/htm/search_index.h"

#include "conv/atc/qualified_name.h"
#include "conv/htm/search_code.h"
#include "conv/htm/search_entries.h"

namespace {

// A unit without a name is found by its title.
std::string_view name_of(gUnitRecord const & record) {
  return record.name.empty() ? std::string_view(record.title) : Atc::last_component(record);
}

std::string_view scope_of(gUnitRecord const & record) {
  std::string_view const name = record.name;
  return record.name.empty() ? name : name.substr(0, name.size() - name_of(record).size());
}

// The scope of what stands in a unit.
std::string scope_within(gUnitRecord const & record) {
  bool const points = record.facts.kind == "enumeration" || scope_of(record).ends_with('.');
  return record.name + (points ? "." : "::");
}

void add_kind(std::string_view word, std::string_view css, std::string & out) {
  out += '[';
  SearchCode::add_quoted(word, out);
  out += ',';
  SearchCode::add_quoted(css, out);
  out += ']';
}

// The types of a declaration are found as such; as words they would hide what texts tell.
void add_text(gNodeList const & nodes, std::string_view declaration, std::string & text) {
  for (gNode const & node : nodes)
    if (node.kind == gNodeKind::subentry)
      add_text(node.children, declaration, text);
    else if (node.kind != gNodeKind::link_line &&
             (node.kind != gNodeKind::verbatim || node.text != declaration))
      (text += plain_text(std::span(&node, 1))) += ' ';
}

gSearchEntry entry_of(gSite const & site, int unit) {
  gUnitRecord const & record = site.unit(unit);
  return {unit,
          name_of(record),
          std::string(scope_of(record)),
          site.kinds.index_of(unit),
          site.addresses.href(unit),
          record.summary};
}

} // namespace

void gSearchIndex::add(int unit, std::string_view text) {
  gUnitRecord const & record = site_.unit(unit);
  if (record.title != record.name && record.title != name_of(record))
    texts_.note(record.title, 3);
  texts_.note(record.summary, 2);
  texts_.note(text, 1);
  texts_.finish_unit(unit);
}

std::string gSearchIndex::text_of(gUnitRecord const & record, gNodeList const & body) {
  std::string text;
  add_text(body, record.declaration, text);
  return text;
}

// Values stand behind their unit; units that aren't shown have no entry.
std::vector<std::uint32_t> gSearchIndex::entries_of_units() const {
  std::vector<std::uint32_t> entries(site_.document.units.size());
  std::uint32_t number = 0;
  auto value = values_.begin();
  for (std::size_t unit = 0; unit < entries.size(); ++unit) {
    entries[unit] = number;
    number += site_.pages.of(static_cast<int>(unit)) >= 0 ? 1 : 0;
    for (; value != values_.end() && value->unit == static_cast<int>(unit); ++value)
      ++number;
  }
  return entries;
}

void gSearchIndex::write_entries(gSearchEntries & entries) const {
  std::size_t const value_kind = site_.kinds.all().size();
  auto value = values_.begin();
  for (int unit = 0; unit < static_cast<int>(site_.document.units.size()); ++unit) {
    if (site_.pages.of(unit) >= 0)
      entries.add(entry_of(site_, unit));
    for (; value != values_.end() && value->unit == unit; ++value)
      entries.add({unit, value->name, scope_within(site_.unit(unit)), value_kind,
                   site_.addresses.href(unit, value->anchor, -1), value->summary});
  }
  entries.finish();
}

void gSearchIndex::write(gConversion & conversion) {
  std::vector<std::string_view> const shards = texts_.write(conversion, entries_of_units());
  gSearchEntries entries(conversion, site_);
  write_entries(entries);
  std::string text = "vlSearch.start({\"entries\":" + std::to_string(entries.size()) +
                     ",\"block\":" + std::to_string(gSearchEntries::block_size) +
                     ",\"parts\":" + std::to_string(entries.parts()) + ",\"kinds\":[";
  for (gKind const & kind : site_.kinds.all()) {
    add_kind(kind.word, kind.css, text);
    text += ',';
  }
  std::string value;
  site_.rules.apply(gVltRule::kind, "enumerator", gVltValues().set(gVltValue::name, "value"),
                    value);
  add_kind(value, "value", text);
  text += "],\n\"shards\":[";
  for (std::size_t i = 0; i < shards.size(); ++i) {
    text += i > 0 ? "," : "";
    SearchCode::add_quoted(shards[i], text);
  }
  text += "]});\n";
  conversion.write("_search/index.js", text);
}
