// Names that make the same address are told apart by a hash of what makes them different. That
// never depends on what else there is, so only the first clash of two names moves an address; and
// the old one then leads to a page that lists both.

#include "conv/htm/addresses.h"

#include <algorithm>
#include <unordered_map>

#include "conv/htm/slug.h"

namespace {

std::string const & name_of(gUnitRecord const & unit) {
  return unit.name.empty() ? unit.title : unit.name;
}

// Without the qualification by the name of the page.
std::string_view local_name(std::string_view name, std::string_view page_name) {
  if (page_name.empty() || !name.starts_with(page_name))
    return name;
  std::string_view const rest = name.substr(page_name.size());
  if (rest.starts_with("::") && rest.size() > 2)
    return rest.substr(2);
  return rest.starts_with(".") && rest.size() > 1 ? rest.substr(1) : name;
}

// Anchors of other sorts begin like this, and the frame of the page has some of its own.
bool is_reserved(std::string_view anchor) {
  for (std::string_view const start : {"b-", "s-", "x-", "n-", "vl-", "on-page"})
    if (anchor.starts_with(start))
      return true;
  return anchor == "main" || anchor == "contents";
}

std::string anchor_slug(std::string_view name) {
  std::string slug = Slug::of(name);
  if (is_reserved(slug))
    slug += '_';
  return slug;
}

// Names in use, and how often each was asked for: many may be the same in all.
using gTaken = std::unordered_map<std::string, int>;

// Takes slug-hash, with a running number where the parts of two are all the same.
std::string take_hashed(std::string const & slug, std::initializer_list<std::string_view> parts,
                        gTaken & taken, bool any_case) {
  auto const form = [any_case](std::string const & name) {
    return any_case ? Vlb::to_lower(name) : name;
  };
  std::string const hash = Slug::hash(parts);
  std::string const first = slug + '-' + hash;
  int & asked = taken[form(first)];
  if (asked++ == 0)
    return first;
  for (;; ++asked) {
    std::string result = slug + '-' + Slug::hash({hash, std::to_string(asked)});
    if (taken.try_emplace(form(result), 1).second)
      return result;
  }
}

// Indices with the same slug, in the order of their first.
std::vector<std::vector<std::size_t>> groups_of(std::vector<std::string> const & slugs) {
  std::vector<std::vector<std::size_t>> groups;
  std::map<std::string_view, std::size_t> known;
  for (std::size_t i = 0; i < slugs.size(); ++i) {
    auto const [at, is_new] = known.try_emplace(slugs[i], groups.size());
    if (is_new)
      groups.emplace_back();
    groups[at->second].push_back(i);
  }
  return groups;
}

} // namespace

gAddresses::gAddresses(gDocument const & document, gPages const & pages,
                       std::vector<std::string_view> const & paths)
    : document_(document),
      pages_(pages),
      anchors_(document.units.size()),
      aliases_(document.units.size()) {
  name_files(paths);
  for (int page = 0; page < pages.size(); ++page)
    name_anchors(page);
}

void gAddresses::name_files(std::vector<std::string_view> const & paths) {
  std::vector<std::string> slugs, folded;
  for (int page = 0; page < pages_.size(); ++page) {
    gUnitRecord const & unit = document_.units[static_cast<std::size_t>(pages_[page].first)];
    slugs.push_back(Slug::of_file(name_of(unit)));
    folded.push_back(Vlb::to_lower(slugs.back()));
  }
  gTaken taken;
  for (std::string const & slug : folded)
    taken.emplace(slug, 1);
  files_.resize(slugs.size() + 1, "index.htm");
  for (auto const & group : groups_of(folded)) {
    if (group.size() == 1) {
      files_[group[0] + 1] = slugs[group[0]] + ".htm";
      continue;
    }
    similar_.push_back({slugs[group[0]] + ".htm", {}});
    for (std::size_t const page : group) {
      auto const first = static_cast<std::size_t>(pages_[static_cast<int>(page)].first);
      gUnitRecord const & unit = document_.units[first];
      files_[page + 1] =
          take_hashed(slugs[page], {unit.style, name_of(unit), unit.declaration, paths[first]},
                      taken, true) +
          ".htm";
      similar_.back().pages.push_back(static_cast<int>(page));
    }
  }
}

void gAddresses::name_anchors(int page) {
  auto const first = static_cast<std::size_t>(pages_[page].first);
  std::size_t const count = static_cast<std::size_t>(pages_[page].end) - first;
  // The unit at the top needs an anchor only beside others like it.
  bool const is_set = pages_[page].same > 1;
  std::vector<std::string> slugs;
  for (std::size_t i = is_set ? 0 : 1; i < count; ++i)
    slugs.push_back(
        anchor_slug(local_name(name_of(document_.units[first + i]), document_.units[first].name)));
  std::size_t const begin = first + (is_set ? 0 : 1);
  gTaken taken;
  for (std::string const & slug : slugs)
    taken.emplace(slug, 1);
  for (auto const & group : groups_of(slugs)) {
    std::size_t const leader = begin + group[0];
    if (leader != first)
      (group.size() == 1 ? anchors_ : aliases_)[leader] = slugs[group[0]];
    for (std::size_t const i : group)
      if (std::string & anchor = (begin + i == first ? aliases_ : anchors_)[begin + i];
          anchor.empty())
        anchor = take_hashed(slugs[i], {document_.units[begin + i].declaration}, taken, false);
  }
}

std::string_view gAddresses::anchor(int unit) const {
  return pages_.begins(unit) ? top : anchors_[static_cast<std::size_t>(unit)];
}

std::string gAddresses::former_anchor(int unit) const {
  int const parent = pages_.units().parent(unit);
  if (parent < 0 || !pages_.is_long_list(parent))
    return {};
  auto const & units = document_.units;
  return anchor_slug(local_name(name_of(units[static_cast<std::size_t>(unit)]),
                                units[static_cast<std::size_t>(parent)].name));
}

std::string gAddresses::href(int unit, int from_page) const {
  bool const is_page = pages_.begins(unit) && pages_.of(unit) != from_page;
  return href(unit, is_page ? std::string_view() : anchor(unit), from_page);
}

std::string gAddresses::href(int unit, std::string_view anchor, int from_page) const {
  int const page = pages_.of(unit);
  std::string result;
  if (page != from_page || page < 0)
    result = file(page);
  if (!anchor.empty())
    (result += '#') += anchor;
  return result;
}
