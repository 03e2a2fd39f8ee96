// A page is set first as if there was room for all. If it is too heavy, it is set again: what its
// texts came to tells how they are divided. Few pages are, so the others cost nothing.

#include <algorithm>

#include "conv/htm/html_text.h"
#include "conv/htm/unit_pages.h"

namespace {

using V = gVltValue;

} // namespace

// All was reported the first time.
gPageFrame gUnitPages::set_in_parts(gPageFrame frame) {
  gReportList again;
  setter_.report_to(again);
  while (true) {
    std::size_t in_texts = 0, leads = 0;
    // A row grows by the link to its text, and by the places that it had.
    for (auto const & [member, text] : texts_) {
      in_texts += text.markup;
      leads += frame.file.size() + 2 * site_.addresses.anchor(member).size() + 30;
    }
    std::size_t const rows = PageParts::markup_of(frame.content) - in_texts + leads;
    if (rows <= gPageParts::most_markup || !shorten_rows(rows - gPageParts::most_markup))
      break;
    frame = set_page();
  }
  parts_.plan(frame.file, listed_.groups, std::move(texts_));
  frame = set_page();
  add_parts(frame);
  setter_.report_to(made_.reports);
  return frame;
}

// The largest groups first: of a few constructors a reader wants to see the parameters. Links of
// types go before whole signatures do; rows that are short already have nothing left but their
// tags. False if there is no more to save.
bool gUnitPages::shorten_rows(std::size_t excess) {
  constexpr std::size_t saved_links = 80, saved_signature = 100; // bytes a row
  return shorten_rows(excess, saved_links, plain_rows_) ||
         shorten_rows(excess, saved_signature, short_rows_) ||
         !std::exchange(rows_are_brief_, true);
}

bool gUnitPages::shorten_rows(std::size_t excess, std::size_t saved, std::set<int> & rows) const {
  std::vector<gListed::Group const *> groups;
  for (gListed::Group const & group : listed_.groups)
    if (!group.units.empty() && !rows.contains(group.units.front()))
      groups.push_back(&group);
  std::ranges::stable_sort(groups, std::ranges::greater(),
                           [](gListed::Group const * one) { return one->units.size(); });
  for (gListed::Group const * const group : groups) {
    if (excess == 0)
      break;
    rows.insert(group->units.begin(), group->units.end());
    excess -= std::min(excess, saved * group->units.size());
  }
  return !groups.empty();
}

// The row has all places of the text, which stay what links from elsewhere lead to.
gMemberRow gUnitPages::row_of_part(int unit, gRowPlace const & place) {
  gMemberRow row;
  gPagePart const * const part = parts_.of(unit);
  std::string const to = part ? part->file + "#" + std::string(site_.addresses.anchor(unit)) : "";
  if (!short_rows_.contains(unit))
    row = setter_.row_of(unit, place, to);
  row.is_all = false;
  row.details = to;
  row.is_brief = rows_are_brief_ && row.signature.empty();
  if (part)
    for (std::string const & anchor : parts_.text_of(unit).anchors) {
      if (row.id.empty() && row.signature.empty())
        row.id = anchor;
      else
        site_.rules.apply(gVltRule::bkmk, gVltValues().set(V::id, anchor), row.places);
    }
  return row;
}

void gUnitPages::add_parts(gPageFrame const & main) {
  deeper_ = 0;
  std::string const name = Html::escaped(main.title);
  gNeighbour before{main.file, name};
  for (gPagePart const & part : parts_.all()) {
    std::set<int> units;
    for (int const member : part.members)
      for (int unit = member; unit <= member + site_.pages.units().below(member); ++unit)
        units.insert(unit);
    setter_.begin_part(&units);
    std::string texts;
    for (int const member : part.members)
      add_with_below(member, texts);
    setter_.begin_part(nullptr);
    gPageFrame frame;
    frame.style = "unit";
    frame.file = part.file;
    frame.title = main.title + ": " + part.title;
    frame.contents = main.contents;
    frame.crumbs = navigation_.crumbs(page_, part.title, "");
    frame.on_page = places_.take();
    frame.previous = std::exchange(before, {part.file, part.title});
    if (&part != &parts_.all().back())
      frame.next = {(&part + 1)->file, (&part + 1)->title};
    auto const same = [&](gPagePart const & one) { return one.title == part.title; };
    auto const & all = parts_.all();
    auto const here = all.begin() + (&part - all.data());
    bool const several = std::ranges::count_if(all, same) > 1;
    std::string const count = std::to_string(std::ranges::count_if(all, same));
    std::string const number =
        several ? std::to_string(std::count_if(all.begin(), here, same) + 1) : std::string();
    gVltValues values;
    values.set(V::title, part.title).set(V::items, texts).set(V::name, name);
    values.set(V::href, main.file).set(V::number, number).set(V::count, count);
    site_.rules.apply(gVltRule::part_page, values, frame.content);
    beside_.push_back(std::move(frame));
  }
}
