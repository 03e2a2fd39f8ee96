// Pages that belong to no unit: the contents, and those for addresses that several pages share.

#include "conv/atc/qualified_name.h"
#include "conv/htm/html_text.h"
#include "conv/htm/overview.h"
#include "conv/htm/page_writer.h"

namespace {

using V = gVltValue;

std::string items_of(gSite const & site, gContents const & contents, gContentsPage const & page) {
  if (!contents.is_plain(page))
    return contents.list(page);
  auto const all = site.pages.tree().children(page.parent);
  std::vector<int> units;
  for (int const child : all.subspan(page.first, page.end - page.first))
    units.push_back(site.pages[child].first);
  std::vector<gRow> rows = Site::rows_of(site, units);
  for (gRow & row : rows)
    row.count = static_cast<std::size_t>(site.pages[site.pages.of(row.unit)].same);
  return gOverview(site, contents).lists(rows, -1, 2);
}

} // namespace

void Pages::write_contents(gPageWriter & writer, gSite const & site, gNavigation const & navigation,
                           gContents const & contents) {
  std::string const tree = navigation.tree(-1);
  std::string const general = site.rules.setting("contents_title", "Contents");
  for (gContentsPage const & page : contents.pages()) {
    gPageFrame frame;
    frame.style = "contents";
    frame.file = page.file;
    frame.title = page.title.empty()       ? general
                  : contents.is_part(page) ? page.title
                                           : page.title + " – " + general;
    frame.crumbs = navigation.crumbs(page.parent, general, "");
    frame.contents = page.parent < 0 ? tree : navigation.tree(page.parent);
    std::string const items = items_of(site, contents, page);
    std::string const title = Html::escaped(frame.title);
    gVltValues values;
    values.set(V::title, title).set(V::items, items).set(V::href, page.file);
    values.set(V::mark, contents.is_plain(page) ? "1" : "");
    site.rules.apply(gVltRule::contents_page, values, frame.content);
    writer.write(frame);
  }
}

void Pages::add_similar(gSite const & site, int unit, std::string & out) {
  gUnitRecord const & record = site.unit(unit);
  gKind const & kind = site.kinds.of(unit);
  std::string const title = Html::escaped(record.title);
  std::string const scope = Html::escaped(Atc::scope_of(record));
  std::string const summary = Html::escaped(record.summary);
  std::string const path = Html::escaped(site.sources.shown(record.path));
  std::string const line = std::to_string(record.source_line);
  std::string const href = site.addresses.href(unit);
  gVltValues values;
  values.set(V::href, href).set(V::title, title).set(V::scope, scope);
  values.set(V::kind, kind.word).set(V::kind_class, kind.css).set(V::summary, summary);
  values.set(V::path, path).set(V::line, line);
  values.set(V::named, Site::is_named(record) ? "1" : "");
  site.rules.apply(gVltRule::similar_item, values, out);
}

void Pages::write_similar(gPageWriter & writer, gSite const & site,
                          gNavigation const & navigation) {
  for (gSimilarPages const & similar : site.addresses.similar()) {
    std::string items;
    for (int const page : similar.pages)
      add_similar(site, site.pages[page].first, items);
    gPageFrame frame;
    frame.style = "similar";
    frame.file = similar.name;
    frame.title = site.head(similar.pages.front()).title;
    frame.crumbs = navigation.crumbs(-1, frame.title, "");
    frame.contents = navigation.tree(-1);
    std::string const title = Html::escaped(frame.title);
    gVltValues values;
    values.set(V::title, title).set(V::items, items).set(V::name, title);
    site.rules.apply(gVltRule::similar_page, values, frame.content);
    writer.write(frame);
  }
}
