// The plan is made in the order in which its parts build on each other.

#include "conv/htm/site.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <unordered_map>

#include "conv/atc/qualified_name.h"
#include "vlb/gmsghandler.h"

namespace {

using gWords = std::set<std::string, std::less<>>;

gWords words_of(std::string const & list) {
  gWords words;
  std::istringstream in(list);
  for (std::string word; in >> word;)
    words.insert(word);
  return words;
}

std::vector<std::string_view> shown_paths(gDocument const & document, gSources const & sources) {
  std::vector<std::string_view> paths;
  for (gUnitRecord const & unit : document.units)
    paths.push_back(sources.shown(unit.path));
  return paths;
}

} // namespace

gSite::gSite(gDocument const & document, gVltRules const & rules, std::string title,
             int split_level)
    : document(document),
      rules(rules),
      title(std::move(title)),
      pages(document, split_level),
      kinds(document, rules),
      inheritance(document),
      sources(document),
      source_addresses(document, sources),
      addresses(document, pages, shown_paths(document, sources)),
      entries(document, pages),
      reports(Msg::log),
      thousands_(rules.setting("thousands", ",")) {
  detail_.assign(document.units.size(), ' ');
  note_asides();
  note_details();
}

// Folders above all sources don't tell them apart.
void gSite::note_asides() {
  gWords const folders = words_of(rules.setting("aside_folders"));
  std::unordered_map<std::string_view, bool> known;
  for (std::size_t i = 0; i < document.units.size() && !folders.empty(); ++i) {
    std::string_view const path = sources.shown(document.units[i].path);
    auto const [found, added] = known.try_emplace(path, false);
    if (added)
      for (std::size_t at = 0, end = 0; (end = path.find('/', at)) != path.npos; at = end + 1)
        found->second = found->second || folders.contains(path.substr(at, end - at));
    if (found->second)
      detail_[i] = 'a';
  }
}

void gSite::note_details() {
  gWords const names = words_of(rules.setting("detail_scopes"));
  if (names.empty())
    return;
  for (std::size_t i = 0; i < document.units.size(); ++i) {
    std::string_view scope = document.units[i].name;
    if (document.units[i].facts.kind != "namespace")
      scope = Atc::scope_of(document.units[i]);
    for (; !scope.empty() && detail_[i] == ' '; scope = Atc::scope_of(scope))
      if (names.contains(Atc::last_component(scope)))
        detail_[i] = 'd';
  }
}

std::string gSite::number(std::size_t value) const {
  std::string digits = std::to_string(value);
  for (std::size_t at = digits.size(); at > 3;)
    digits.insert(at -= 3, thousands_);
  return digits;
}

std::string_view gSite::summary_of(int number) const {
  std::string const & own = unit(number).summary;
  int const above = own.empty() ? inheritance.explained_by(number) : -1;
  return above < 0 ? own : unit(above).summary;
}

std::string_view Site::short_title(gUnitRecord const & unit) {
  return unit.title == unit.name ? Atc::last_component(unit) : std::string_view(unit.title);
}

std::string_view Site::contents_title(gUnitRecord const & unit) {
  return unit.toc.empty() ? short_title(unit) : std::string_view(unit.toc);
}

bool Site::is_named(gUnitRecord const & unit) {
  return !unit.name.empty() && (unit.title == unit.name || unit.title == Atc::last_component(unit));
}

bool Site::joins(gSite const & site, gRow const & row, int unit) {
  gUnitRecord const & first = site.unit(row.unit);
  gUnitRecord const & other = site.unit(unit);
  return !first.name.empty() && first.name == other.name &&
         site.kinds.index_of(row.unit) == site.kinds.index_of(unit) &&
         contents_title(first) == contents_title(other);
}

std::vector<gRow> Site::rows_of(gSite const & site, std::span<int const> units) {
  std::vector<gRow> rows;
  for (int const unit : units) {
    if (site.pages.of(unit) < 0)
      continue;
    if (!rows.empty() && joins(site, rows.back(), unit))
      ++rows.back().count;
    else
      rows.push_back({unit, 1, {}});
    if (rows.back().summary.empty())
      rows.back().summary = site.summary_of(unit);
  }
  return rows;
}

std::string Site::count_of(std::size_t count) {
  return count > 1 ? std::to_string(count) : std::string();
}
