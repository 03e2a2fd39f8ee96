// What pages share is planned before and doesn't change any more; what one page finds out, it gives
// back beside its files.

#include "conv/htm/page_pool.h"

#include "app/options/run_flags.h"
#include "vlb/ordered.h"

void Pages::write_units(gConversion & conversion, gSite & site, gColours const & colours,
                        gNavigation const & navigation, gContents const & contents,
                        gScopes const & scopes, gIncludes const & includes, gSearchIndex & search) {
  gUses const uses(site);
  unsigned const threads = Vlb::thread_count(conversion.input().jobs);
  Vlb::gPerWorker<gUnitPages> makers(threads, [&] {
    return std::make_unique<gUnitPages>(conversion, site, colours, navigation, contents, scopes,
                                        includes, uses);
  });
  auto const count = static_cast<std::size_t>(site.pages.size());
  Vlb::gOrdered<gMadePage> pages(threads, count, [&](unsigned worker, std::size_t page) {
    Vapp::poll_break();
    return makers[worker].make(static_cast<int>(page));
  });
  auto const all = site.document.units.size() + site.source_addresses.sources();
  for (int page = 0; page < site.pages.size(); ++page) {
    conversion.progress(static_cast<std::size_t>(site.pages[page].first), all);
    gMadePage made = pages.next();
    made.reports.hand_on(site.reports);
    for (gMadePage::Unit & one : made.units) {
      search.add(one.unit, one.text);
      for (gSearchValue & value : one.values)
        search.add_value(std::move(value));
    }
  }
}

void Pages::write_sources(gConversion & conversion, gSite const & site, gColours const & colours,
                          gNavigation const & navigation, gIncludes const & includes,
                          std::vector<std::function<void()>> const & others) {
  gKnownWords const words(site);
  auto const linked = site.source_addresses.linked();
  gSourcePages::gUnits const units = gSourcePages::units_of(site);
  unsigned const threads = Vlb::thread_count(conversion.input().jobs);
  Vlb::gPerWorker<gSourcePages> makers(threads, [&] {
    return std::make_unique<gSourcePages>(conversion, site, colours, navigation, units, words,
                                          includes);
  });
  std::size_t const count = others.size() + linked.size();
  // The others come first: they take longer than any page.
  Vlb::gOrdered<bool> pages(threads, count, [&](unsigned worker, std::size_t item) {
    Vapp::poll_break();
    if (item < others.size())
      others[item]();
    else
      makers[worker].write(*linked[item - others.size()]);
    return true;
  });
  // The pages of units are already done.
  std::size_t const before = site.document.units.size();
  for (std::size_t i = 0; i < count; ++i) {
    conversion.progress(before + i, before + count);
    pages.next();
  }
}
