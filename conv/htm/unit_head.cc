// Versions and warnings stand in subentries, which are known by the titles that the script tells.

#include "conv/htm/unit_head.h"

#include "conv/atc/qualified_name.h"
#include "conv/htm/html_text.h"

namespace {

using V = gVltValue;

bool is_scope(gUnitRecord const & unit) {
  for (std::string_view const kind :
       {"namespace", "module", "unit", "program", "library", "package"})
    if (unit.facts.kind == kind)
      return true;
  return false;
}

// The plain text behind the title of a subentry; empty without one.
std::string text_under(gNodeList const & body, std::string const & title) {
  for (gNode const & node : body)
    if (node.kind == gNodeKind::subentry && node.children.size() > 1 &&
        node.children[0].kind == gNodeKind::title && plain_text(node.children[0].children) == title)
      return plain_text({node.children.begin() + 1, node.children.end()});
  return {};
}

// A name whose scopes have pages; empty if it has none of them.
std::string linked_name(gSite const & site, gHtmSetter const & setter, int unit) {
  gUnitRecord const & record = site.unit(unit);
  std::string_view const name = record.name;
  std::string_view const own = Atc::last_component(record);
  if (record.title != record.name || own.size() == name.size() || !record.facts.known)
    return {};
  std::string out;
  std::size_t begin = 0;
  for (std::size_t at = 1; at <= name.size() - own.size(); ++at) {
    std::size_t const separator = Atc::separator_before(name, at);
    if (separator == 0)
      continue;
    std::string_view const scope = name.substr(0, at - separator);
    int const found = site.document.find_word(unit, scope);
    // "App" of a unit "App.Orders" is no scope.
    if (found < 0 || site.unit(found).name != scope || site.pages.of(found) < 0)
      continue;
    std::string const text = Html::escaped(name.substr(begin, at - separator - begin));
    site.rules.apply(gVltRule::name_link,
                     gVltValues().set(V::text, text).set(V::href, setter.link_to(found, {}).href),
                     out);
    Html::escape(name.substr(at - separator, separator), out);
    begin = at;
  }
  Html::escape(name.substr(begin), out);
  return out;
}

// The unit that something of Pascal stands in: the name of a unit may have dots itself.
std::string_view unit_around(gSite const & site, std::string_view name) {
  for (std::size_t at = name.find('.'); at != name.npos; at = name.find('.', at + 1))
    if (int const found = site.document.find_type(name.substr(0, at));
        found >= 0 && is_scope(site.unit(found)))
      return name.substr(0, at);
  return name.substr(0, name.find('.'));
}

std::string include_of(gSite const & site, gIncludes const & includes, gUnitRecord const & record) {
  std::string out;
  if (gColours::language_of(record.path) == gLanguage::pascal) {
    std::string_view name = record.name;
    std::string const unit = Html::escaped(unit_around(site, name));
    if (record.facts.kind != "unit" && name.find('.') != name.npos)
      site.rules.apply(gVltRule::include, "pascal", gVltValues().set(V::name, unit), out);
    return out;
  }
  std::string_view const shown = site.sources.shown(record.path);
  std::string_view const own = UnitHead::include_path(record.path, shown);
  std::string_view const said = own.empty() ? own : includes.spelling_of(record.path);
  std::string const path = Html::escaped(said.empty() ? own : said);
  if (!path.empty())
    site.rules.apply(gVltRule::include, gVltValues().set(V::path, path).set(V::name, path), out);
  return out;
}

// A folder such as "glib-2.0" or "eigen3" holds one version among others, and compilers are told
// it.
std::string_view without_version(std::string_view path) {
  std::size_t const end = path.find('/');
  bool const version = end != path.npos && end > 1 && Vlb::is_digit(path[end - 1]);
  return version ? path.substr(end + 1) : path;
}

} // namespace

std::string_view UnitHead::include_path(std::string_view path, std::string_view shown) {
  std::string const extension = Vlb::to_lower(path.substr(path.rfind('.') + 1));
  bool const header =
      extension.starts_with('h') || path.find('.', path.rfind('/') + 1) == path.npos;
  if (!header)
    return {};
  constexpr std::string_view folder = "/include/";
  std::size_t const at = path.rfind(folder);
  if (at != path.npos)
    return without_version(path.substr(at + folder.size()));
  for (std::string_view const root : {"src/", "source/", "inc/"})
    if (shown.starts_with(root))
      return shown.substr(root.size());
  return shown;
}

gUnitHead UnitHead::of(gSite const & site, gHtmSetter & setter, gIncludes const & includes,
                       int unit, gUnitText const & text) {
  gUnitRecord const & record = site.unit(unit);
  gUnitHead head;
  if (!record.facts.known || record.facts.kind.empty())
    return head;
  bool const begins = site.pages.begins(unit);
  head.title = begins ? linked_name(site, setter, unit) : "";
  bool const is_text = record.name.empty(); // a topic or page
  if (begins && !is_scope(record) && !is_text)
    head.include = include_of(site, includes, record);
  bool const said = !begins && record.parent >= 0 &&
                    site.unit(record.parent).facts.condition == record.facts.condition;
  if (!said)
    head.condition = Html::escaped(record.facts.condition);
  bool const told =
      !text_under(text.body, site.rules.setting("deprecated_title", "Deprecated")).empty();
  head.deprecated = told || record.facts.has_mark("deprecated") ? "1" : "";
  std::string const since = text_under(text.body, site.rules.setting("since_title", "Since"));
  constexpr std::size_t longest = 24; // more is a text, not a version
  head.since = since.size() <= longest ? Html::escaped(since) : "";
  return head;
}
