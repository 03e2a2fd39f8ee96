// A source is looked at when the first link asks for it, so that nothing is read in vain and no
// link leads to a page that there won't be.

#include "conv/htm/source_addresses.h"

#include <algorithm>
#include <charconv>

#include "conv/htm/slug.h"
#include "vlb/gstring.h"

namespace {

std::size_t count_lines(std::string_view text) {
  auto const feeds = static_cast<std::size_t>(std::ranges::count(text, '\n'));
  return feeds + (text.empty() || text.back() == '\n' ? 0 : 1);
}

} // namespace

gSourceAddresses::gSourceAddresses(gDocument const & document, gSources const & sources)
    : sources_(sources) {
  std::vector<gEntry *> added;
  for (gUnitRecord const & unit : document.units) {
    gEntry & entry = entries_[unit.path];
    if (!entry.source.slug.empty())
      continue;
    entry.source.path = unit.path;
    entry.source.shown = sources.shown(unit.path);
    entry.source.slug = Slug::of_file(entry.source.shown);
    ++slugs_[Vlb::to_lower(entry.source.slug)];
    added.push_back(&entry);
  }
  for (gEntry * const entry : added)
    if (slugs_[Vlb::to_lower(entry->source.slug)] > 1)
      entry->source.slug += '-' + Slug::hash({entry->source.shown});
}

gSourceAddresses::gEntry & gSourceAddresses::entry(std::string_view path) {
  if (auto const found = entries_.find(path); found != entries_.end())
    return found->second;
  // Not the place of any unit: told apart by its whole path.
  gEntry & added = entries_[std::string(path)];
  added.source.path = path;
  added.source.shown = path;
  added.source.slug = Slug::of_file(path.substr(path.rfind('/') + 1)) + '-' + Slug::hash({path});
  return added;
}

void gSourceAddresses::examine(gEntry & entry) {
  std::string text;
  bool const readable = sources_.read(entry.source.path, text, entry.faults);
  entry.state = readable ? gEntry::usable : gEntry::unusable;
  if (readable)
    entry.source.lines = count_lines(text);
}

std::string gSourceAddresses::href(std::string_view path, std::string_view line,
                                   gReportSink & reports) {
  std::lock_guard const lock(mutex_);
  gEntry & source = entry(path);
  if (source.state == gEntry::unknown)
    examine(source);
  for (gReport const & fault : source.faults.reports())
    reports.take(fault);
  std::size_t number = 0;
  std::from_chars(line.data(), line.data() + line.size(), number);
  if (source.state != gEntry::usable || number < 1 || number > source.source.lines)
    return {};
  return page(source.source, (number - 1) / lines_per_page) + "#L" + std::to_string(number);
}

std::string gSourceAddresses::page(gSource const & source, std::size_t part) {
  std::string name = "_source/" + source.slug;
  if (part > 0)
    name += "-" + std::to_string(part + 1);
  return name + ".htm";
}

std::size_t gSourceAddresses::parts(gSource const & source) {
  return std::max<std::size_t>(1, (source.lines + lines_per_page - 1) / lines_per_page);
}

std::vector<gSource const *> gSourceAddresses::linked() const {
  std::vector<gSource const *> result;
  for (auto const & [path, entry] : entries_)
    if (entry.state == gEntry::usable)
      result.push_back(&entry.source);
  return result;
}
