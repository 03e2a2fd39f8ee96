// A name means the source whose path ends with it: the one in the folder of the source that says
// so, else the only one. Of several none is sure.

#include "conv/htm/includes.h"

#include <algorithm>

#include "conv/htm/colours.h"
#include "conv/htm/relation_list.h"
#include "conv/htm/unit_head.h"
#include "vlb/gstring.h"
#include "vlb/source_bytes.h"

namespace {

constexpr std::size_t most = 40;             // names of a list
constexpr std::size_t most_looked_at = 1000; // sources that one includes

std::string_view trimmed_front(std::string_view text) {
  std::size_t const first = text.find_first_not_of(" \t");
  return first == text.npos ? std::string_view() : text.substr(first);
}

} // namespace

std::string Includes::normal(std::string path) {
  for (std::size_t at; (at = path.find("/../")) != path.npos && at > 0;) {
    std::size_t const before = path.rfind('/', at - 1);
    path.erase(before + 1, at + 4 - before - 1);
  }
  for (std::size_t at; (at = path.find("/./")) != path.npos;)
    path.erase(at, 2);
  return path;
}

std::vector<Includes::gName> Includes::names_in(std::string_view text) {
  std::vector<gName> names;
  for (std::size_t at = 0; at < text.size();) {
    std::size_t const end = std::min(text.find('\n', at), text.size());
    std::string_view line = trimmed_front(text.substr(at, end - at));
    at = end + 1;
    if (!line.starts_with('#'))
      continue;
    line = trimmed_front(line.substr(1));
    if (!line.starts_with("include"))
      continue;
    line = trimmed_front(line.substr(7));
    char const close = line.starts_with('<') ? '>' : line.starts_with('"') ? '"' : '\0';
    std::size_t const last = close == '\0' ? line.npos : line.find(close, 1);
    if (last != line.npos && last > 1)
      names.push_back({std::string(line.substr(1, last - 1)), close == '>'});
  }
  return names;
}

gIncludes::gIncludes(gSite const & site) : site_(site) {
  find_pages();
  gPaths all;
  for (auto const & [path, page] : pages_)
    all.push_back(path);
  std::ranges::sort(all);
  for (std::string_view const path : all)
    ends_[path.substr(path.rfind('/') + 1)].push_back(path);
  for (std::string_view const path : all)
    read(path);
}

// A heading is that of a source if all below it comes from there and it is its path, or if it is
// the text of the source.
void gIncludes::find_pages() {
  for (int i = 0; i < static_cast<int>(site_.document.units.size()); ++i) {
    gUnitRecord const & unit = site_.unit(i);
    bool const text = unit.facts.kind == "file";
    if (unit.facts.known && !text)
      pages_.try_emplace(unit.path, -1);
    if ((unit.facts.known && !text) || site_.pages.of(i) < 0)
      continue;
    int const first = text ? i : first_known_below(i);
    if (first < 0)
      continue;
    std::string_view const path = site_.unit(first).path;
    if (!unit.title.empty() && path.ends_with(unit.title)) {
      pages_[path] = i;
      paths_[i] = path;
    }
  }
}

// Headings of parts may stand between a source and what it declares.
int gIncludes::first_known_below(int unit) const {
  auto below = site_.pages.units().children(unit);
  while (!below.empty() && !site_.unit(below[0]).facts.known)
    below = site_.pages.units().children(below[0]);
  return below.empty() ? -1 : below[0];
}

std::string_view gIncludes::include_path(std::string_view path) const {
  return UnitHead::include_path(path, site_.sources.shown(path));
}

void gIncludes::read(std::string_view path) {
  std::string text;
  if (gColours::language_of(path) == gLanguage::pascal ||
      !Vlb::read_source(gPathstring(std::string(path)), text))
    return;
  for (Includes::gName const & name : Includes::names_in(text)) {
    std::string_view const other = meant(path, name.text);
    gPaths & own = includes_[path];
    if (own.size() > most_looked_at)
      return;
    // A quoted name is the spelling for others only if it is told from where they look, too.
    if (!other.empty() && (name.angled || name.text == include_path(other)))
      ++spellings_[other][name.text];
    if (other.empty() || other == path || std::ranges::find(own, other) != own.end())
      continue;
    own.push_back(other);
    included_by_[other].push_back(path);
  }
}

std::string_view gIncludes::meant(std::string_view from, std::string const & name) const {
  auto const found = ends_.find(std::string_view(name).substr(name.rfind('/') + 1));
  if (found == ends_.end())
    return {};
  std::string const beside =
      Includes::normal(std::string(from.substr(0, from.rfind('/') + 1)) + name);
  std::string const end = Includes::normal('/' + name);
  std::string_view only;
  for (std::string_view const path : found->second) {
    if (path == beside)
      return path;
    if (!path.ends_with(end))
      continue;
    if (!only.empty())
      return {};
    only = path;
  }
  return only;
}

int gIncludes::page_of(std::string_view path) const {
  auto const found = pages_.find(path);
  return found == pages_.end() || found->second < 0 ? -1 : site_.pages.of(found->second);
}

std::string_view gIncludes::spelling_of(std::string_view path) const {
  auto const found = spellings_.find(path);
  if (found == spellings_.end())
    return {};
  return std::ranges::max_element(found->second, {}, [](auto const & one) { return one.second; })
      ->first;
}

void gIncludes::add(std::string_view what, gPaths const & paths, int page,
                    std::string & out) const {
  gRelationList list(site_, page, most);
  for (std::string_view const path : paths)
    list.add(pages_.at(path), site_.sources.shown(path));
  list.put(what, out);
}

std::string gIncludes::of(int unit) const {
  std::string out;
  auto const path = paths_.find(unit);
  if (path == paths_.end())
    return out;
  int const page = site_.pages.of(unit);
  if (auto const found = includes_.find(path->second);
      found != includes_.end() && !found->second.empty())
    add("includes", found->second, page, out);
  if (auto const found = included_by_.find(path->second); found != included_by_.end())
    add("included", found->second, page, out);
  return out;
}
