// The start page: for each chapter how much there is, and the first things in it.

#include <algorithm>

#include "conv/htm/html_text.h"
#include "conv/htm/overview.h"
#include "conv/htm/page_writer.h"

namespace {

using V = gVltValue;

constexpr std::size_t samples = 12; // of a chapter

class gStartPage {
public:
  gStartPage(gSite const & site, gContents const & contents)
      : site_(site),
        overview_(site, contents) {}

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
    std::string const href = site_.addresses.href(unit), text = counts_of(counts);
    std::string const list = overview_.items(first, -1);
    gVltValues values;
    values.set(V::href, href).set(V::title, title).set(V::summary, summary).set(V::text, text);
    values.set(V::number, deeper).set(V::items, list).set(V::count, more);
    site_.rules.apply(gVltRule::chapter, values, out);
  }
  // Those that something is said about come before the others, all in their order.
  static std::vector<gRow> first_of(std::vector<gRow> const & rows) {
    std::vector<gRow> first;
    for (bool const described : {true, false})
      for (gRow const & row : rows)
        if (first.size() < samples && row.summary.empty() != described)
          first.push_back(row);
    std::ranges::sort(first, {}, &gRow::unit);
    return first;
  }
  // Such as "12 classes, 3 types".
  std::string counts_of(gCounts const & counts) const {
    std::string out;
    for (auto const & [kind, count] : counts) {
      std::string const number = site_.number(count);
      out += out.empty() ? "" : ", ";
      site_.rules.apply(gVltRule::kinds, site_.kinds.all()[kind].selector,
                        gVltValues().set(V::count, number), out);
    }
    return out;
  }

  gSite const & site_;
  gOverview overview_;
};

} // namespace

void Pages::write_start(gPageWriter & writer, gSite const & site, gNavigation const & navigation,
                        gContents const & contents) {
  std::string const items = gStartPage(site, contents).items();
  std::string const tree = navigation.tree(-1);
  std::string const title = Html::escaped(site.title);
  std::string const units = site.number(site.document.units.size());
  std::string const pages = site.number(static_cast<std::size_t>(site.pages.size()));
  gVltValues values;
  values.set(V::title, title).set(V::items, items).set(V::contents, tree);
  values.set(V::count, units).set(V::number, pages);
  std::string const note = skipped_note(site, site.document.skipped.size());
  values.set(V::text, note);
  gPageFrame frame;
  frame.style = "start";
  frame.file = "index.htm";
  frame.contents = tree;
  frame.next = navigation.next(-1);
  site.rules.apply(gVltRule::start_page, values, frame.content);
  writer.write(frame);
}
