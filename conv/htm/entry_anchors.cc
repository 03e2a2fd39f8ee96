// Planned for all pages at once, so that each page can be made without the others.

#include "conv/htm/entry_anchors.h"

#include "conv/htm/slug.h"

gEntryAnchors::gEntryAnchors(gDocument const & document, gPages const & pages) {
  std::map<std::pair<int, std::string>, int> known; // on each page
  for (gIndexEntry const & entry : document.index_entries) {
    if (entry.label.empty() || entry.unit < 0)
      continue;
    std::string anchor = "x-" + Vlb::to_lower(Slug::of(entry.fields[1]));
    int const number = ++known[{pages.of(entry.unit), anchor}];
    if (number > 1)
      anchor += '-' + std::to_string(number);
    anchors_.try_emplace(entry.label, std::move(anchor));
  }
}

std::string const & gEntryAnchors::of(std::string const & label) const {
  auto const found = anchors_.find(label);
  return found == anchors_.end() ? none_ : found->second;
}
