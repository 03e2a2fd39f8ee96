// The plan is made in the order in which its parts build on each other.

#include "conv/htm/site.h"

#include <algorithm>

namespace {

std::vector<std::string_view> shown_paths(gDocument const & document, gSources const & sources) {
  std::vector<std::string_view> paths;
  for (gUnitRecord const & unit : document.units)
    paths.push_back(sources.shown(unit.path));
  return paths;
}

// Where the last part begins. Signs of an operator and template arguments are no separators.
std::size_t last_begin(std::string_view name) {
  std::size_t const end = std::min(name.find('<'), name.size());
  std::size_t const operator_at = name.find("operator");
  std::size_t const limit = std::min(end, operator_at);
  std::size_t const scope = name.substr(0, limit).rfind("::");
  if (scope != std::string_view::npos)
    return scope + 2;
  if (limit != name.size() || name.find(' ') != std::string_view::npos)
    return 0;
  std::size_t const point = name.rfind('.');
  return point == std::string_view::npos || point + 1 == name.size() ? 0 : point + 1;
}

} // namespace

gSite::gSite(gDocument const & document, gVltRules const & rules, std::string title,
             int split_level)
    : document(document),
      rules(rules),
      title(std::move(title)),
      pages(document, split_level),
      kinds(document, rules),
      sources(document),
      addresses(document, pages, shown_paths(document, sources)) {}

std::string_view Site::scope_of(std::string_view name) {
  std::string_view scope = name.substr(0, last_begin(name));
  while (scope.ends_with(':') || scope.ends_with('.'))
    scope.remove_suffix(1);
  return scope;
}

std::string_view Site::last_part(std::string_view name) {
  return name.substr(last_begin(name));
}

std::string_view Site::short_title(gUnitRecord const & unit) {
  return unit.title == unit.name ? last_part(unit.title) : std::string_view(unit.title);
}

std::string_view Site::contents_title(gUnitRecord const & unit) {
  return unit.toc.empty() ? short_title(unit) : std::string_view(unit.toc);
}
