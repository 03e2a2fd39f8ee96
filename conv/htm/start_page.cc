// The start page: what its authors say, then for each chapter how much there is, and what matters
// most in it.

#include <algorithm>

#include "conv/htm/class_tree.h"
#include "conv/htm/htm_setter.h"
#include "conv/htm/html_text.h"
#include "conv/htm/includes.h"
#include "conv/htm/overview.h"
#include "conv/htm/page_writer.h"
#include "conv/htm/scopes.h"
#include "conv/htm/slug.h"
#include "conv/set/markdown.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

using V = gVltValue;

constexpr std::size_t samples = 12; // of a chapter

class gStartPage {
public:
  gStartPage(gSite const & site, gContents const & contents, gScopes const & scopes)
      : site_(site),
        overview_(site, contents, &scopes),
        scopes_(scopes) {}

  // Units with something below them are chapters; the others between them are listed.
  std::string items() const {
    std::string out;
    std::vector<int> leaves;
    auto const list_leaves = [&] {
      out += overview_.lists(Site::rows_of(site_, leaves), -1, 2);
      leaves.clear();
    };
    for (int const unit : site_.pages.units().children(-1)) {
      if (site_.pages.units().children(unit).empty()) {
        leaves.push_back(unit);
        continue;
      }
      list_leaves();
      add_chapter(unit, out);
    }
    list_leaves();
    return out;
  }

private:
  using gCounts = std::map<std::size_t, std::size_t>; // units by their kinds

  void add_chapter(int unit, std::string & out) const {
    auto const children = site_.pages.units().children(unit);
    std::vector<gRow> const rows = Site::rows_of(site_, children);
    std::vector<gRow> const first = first_of(rows);
    gCounts counts;
    for (gRow const & row : rows)
      counts[site_.kinds.index_of(row.unit)] += row.count;
    // Below things of several kinds stands more than members.
    auto const below = static_cast<std::size_t>(site_.pages.units().below(unit));
    std::string const deeper =
        counts.size() == 1 && below > children.size() ? site_.number(below - children.size()) : "";
    std::string const more = rows.size() > first.size() ? site_.number(rows.size()) : "";
    std::string const title = Html::escaped(Site::contents_title(site_.unit(unit)));
    std::string const summary = Html::escaped(site_.unit(unit).summary);
    std::string const href = site_.addresses.href(unit), text = overview_.counts_of(counts);
    std::string const list = overview_.items(first, -1);
    gVltValues values;
    values.set(V::href, href).set(V::title, title).set(V::summary, summary).set(V::text, text);
    values.set(V::number, deeper).set(V::items, list).set(V::count, more);
    site_.rules.apply(gVltRule::chapter, values, out);
  }
  // How much there is to read about a thing, and how many build on it.
  std::size_t weight_of(int unit) const {
    if (site_.is_detail(unit) || site_.is_aside(unit))
      return 0;
    std::size_t weight = site_.unit(unit).summary.empty() ? 1 : 4;
    weight += builders_on(unit);
    auto const said = [&](int one) { return !site_.unit(one).summary.empty(); };
    for (auto const units : {site_.pages.units().children(unit), scopes_.of(unit)})
      weight += static_cast<std::size_t>(std::ranges::count_if(units, said)) +
                std::min<std::size_t>(units.size() / 4, 50); // thousands may be generated
    for (int const one : scopes_.of(unit))
      weight += builders_on(one);
    return weight;
  }
  std::size_t builders_on(int unit) const { return 2 * site_.inheritance.derived(unit).size(); }
  // What matters most, if not all of it is shown.
  std::vector<gRow> first_of(std::vector<gRow> rows) const {
    std::map<int, std::size_t> weights;
    for (gRow const & row : rows)
      weights[row.unit] = weight_of(row.unit);
    std::size_t const all = rows.size();
    if (std::ranges::any_of(weights, [](auto const & one) { return one.second > 0; }))
      std::erase_if(rows, [&](gRow const & row) { return weights[row.unit] == 0; });
    if (all <= samples && rows.size() == all)
      return rows;
    std::ranges::stable_sort(rows, std::ranges::greater(),
                             [&](gRow const & row) { return weights[row.unit]; });
    rows.resize(std::min(rows.size(), samples));
    return rows;
  }

  gSite const & site_;
  gOverview overview_;
  gScopes const & scopes_;
};

// The text that a comment gives for this page.
int main_text(gSite const & site) {
  auto const & units = site.document.units;
  auto const found = std::ranges::find_if(
      units, [](gUnitRecord const & unit) { return unit.facts.kind == "mainpage"; });
  return found == units.end() ? -1 : static_cast<int>(found - units.begin());
}

// A README is read where the sources lie, so its links name files beside it and headlines in it.
class gTextLinks {
public:
  gTextLinks(gSite & site, gPathstring const & file, gNodeList const & body)
      : site_(site),
        folder_(file.substr(0, file.rfind('/') + 1)) {
    for (gNode const & node : body)
      if (node.kind == gNodeKind::headline)
        headlines_.insert(Vlb::to_lower(Slug::of(plain_text(node.children))));
  }

  // What leads nowhere becomes text.
  void settle(gNodeList & nodes) {
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      settle(nodes[i].children);
      if (nodes[i].kind != gNodeKind::web_link)
        continue;
      if (leads_somewhere(nodes[i]))
        continue;
      gNodeList inner = std::move(nodes[i].children);
      auto const at = nodes.erase(nodes.begin() + static_cast<std::ptrdiff_t>(i));
      nodes.insert(at, std::make_move_iterator(inner.begin()),
                   std::make_move_iterator(inner.end()));
    }
  }

private:
  // Gives the link the address that it has here.
  bool leads_somewhere(gNode & link) {
    std::string const address = link.param(0);
    if (address.starts_with('#')) {
      std::string const place = Vlb::to_lower(address.substr(1));
      link.params = {"#s-" + place, "here"};
      return headlines_.contains(place);
    }
    if (address.find(':') != address.npos)
      return true;
    if (address.empty() || address.starts_with('/'))
      return false;
    gPathstring const path(Includes::normal(folder_ + address.substr(0, address.find('#'))));
    if (!path.starts_with(folder_) || !gFileSystem::file_exists(path))
      return false;
    if (int const unit = page_of(path); unit >= 0) {
      link.kind = gNodeKind::reference;
      link.params = {site_.unit(unit).wintype, site_.unit(unit).label, ""};
      return true;
    }
    link.params = {site_.repository ? site_.repository->href(path, "1") : std::string()};
    return !link.params[0].empty();
  }
  // The page of a source that is documented.
  int page_of(std::string const & path) const {
    for (int i = 0; i < static_cast<int>(site_.document.units.size()); ++i)
      if (gUnitRecord const & unit = site_.unit(i); unit.path == path && site_.pages.begins(i))
        return i;
    return -1;
  }

  gSite & site_;
  std::string folder_;
  std::set<std::string> headlines_;
};

// The text that belongs to the sources; empty without one.
std::string text_of(gSite & site, gColours const & colours, gPathstring const & file) {
  if (int const unit = main_text(site); unit >= 0) {
    gHtmSetter setter(site, colours);
    setter.begin_page(-1);
    setter.begin_unit(unit, 1);
    return setter.set(site.document.text_of(unit).body);
  }
  std::string text;
  if (file.empty())
    return text;
  if (!gFileSystem::read_file(file, text)) {
    Msg::log(Msg::cannot_read, file);
    return {};
  }
  gHtmSetter setter(site, colours);
  setter.begin_page(-1);
  setter.begin_unit(-1, 1);
  gNodeList body = read_markdown(text).body;
  gTextLinks(site, file, body).settle(body);
  return setter.set(body);
}

// How much of what was found is explained, in percent.
std::string share_of(gSite const & site) {
  std::size_t all = 0, said = 0;
  for (gUnitRecord const & unit : site.document.units) {
    bool const counts = unit.facts.known && !unit.facts.kind.empty();
    all += counts;
    said += counts && !unit.summary.empty();
  }
  return all == 0 ? "" : std::to_string(said * 100 / all);
}

} // namespace

void Pages::write_start(gPageWriter & writer, gSite & site, gColours const & colours,
                        gPathstring const & text, gNavigation const & navigation,
                        gContents const & contents, gScopes const & scopes) {
  std::string const items = gStartPage(site, contents, scopes).items();
  std::string const tree = navigation.tree(-1);
  std::string const title = Html::escaped(site.title);
  std::string const units = site.number(site.document.units.size());
  std::string const pages = site.number(static_cast<std::size_t>(site.pages.size()));
  gVltValues values;
  values.set(V::title, title).set(V::items, items).set(V::contents, tree);
  values.set(V::count, units).set(V::number, pages);
  std::string const note = skipped_note(site, site.document.skipped.size());
  std::string const intro = text_of(site, colours, text), share = share_of(site);
  values.set(V::text, note).set(V::body, intro).set(V::share, share);
  if (site.class_tree)
    values.set(V::class_tree, site.class_tree->file());
  gPageFrame frame;
  frame.style = "start";
  frame.file = "index.htm";
  frame.contents = tree;
  frame.next = navigation.next(-1);
  site.rules.apply(gVltRule::start_page, values, frame.content);
  writer.write(frame);
}

// Servers show it at any address, so its links name the whole way.
void Pages::write_for_servers(gConversion & conversion, gPageWriter & writer, gSite const & site) {
  if (site.address.empty())
    return;
  std::string items;
  auto const add = [&](std::string const & file) {
    std::string const href = Html::escaped(site.address + file);
    site.rules.apply(gVltRule::sitemap_item, gVltValues().set(V::href, href), items);
  };
  add("index.htm");
  for (int page = 0; page < site.pages.size(); ++page)
    add(site.addresses.file(page));
  std::string map;
  site.rules.apply(gVltRule::sitemap, gVltValues().set(V::items, items), map);
  conversion.write("sitemap.xml", map);
  gPageFrame frame;
  frame.style = "lost";
  frame.file = "404.html";
  frame.title = site.rules.setting("lost_title", "Page not found");
  frame.root = site.address;
  std::string const title = Html::escaped(frame.title), root = Html::escaped(site.address);
  site.rules.apply(gVltRule::lost_page, gVltValues().set(V::title, title).set(V::root, root),
                   frame.content);
  writer.write(frame);
}
