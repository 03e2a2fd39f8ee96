// Open addressing from the hash of a name's tail to a chain of units. A chain can hold every unit
// of a document (think of "operator()"), and every unit can refer to it: long chains are therefore
// sorted by outline once, and a reference halves its way to the nearest place.
#include "ana/anadat/gdoctable.h"

#include <algorithm>
#include <cstdlib>

namespace {

// Up to here a walk along the chain costs less than sorting.
constexpr std::uint32_t long_chain = 8;

// The hash runs from the back, so that one pass gives the hashes of all tails.
std::uint64_t add_to_hash(std::uint64_t hash, std::string_view text) {
  for (std::size_t i = text.size(); i-- > 0;)
    hash = (hash ^ static_cast<unsigned char>(text[i])) * 0x100000001B3u;
  return hash;
}
constexpr std::uint64_t hash_start = 0xCBF29CE484222325u;

// The slots use the low bits, which mix worst.
std::size_t spread(std::uint64_t hash) {
  return static_cast<std::size_t>((hash * 0x9E3779B97F4A7C15u) >> 32);
}

// True if `a` is nearer to `from` than `b`.
bool nearer(gOutline const & from, gOutline const & a, gOutline const & b) {
  for (std::size_t i = 0; i < from.size(); ++i) {
    int const to_a = std::abs(a[i] - from[i]);
    int const to_b = std::abs(b[i] - from[i]);
    if (to_a != to_b)
      return to_a < to_b;
  }
  return false;
}

bool has_bookmark(gDocUnit const & unit) {
  return unit.flags() & gDocUnit::bookmark;
}

} // namespace

void gDocTable::add(gDocUnit & unit) {
  std::string_view const sep = unit.name_sep();
  unit.names().join(sep, name_);
  std::string_view const name = name_;
  if (name.empty())
    return;
  starts_ = {0};
  if (!sep.empty())
    for (std::size_t at = name.find(sep); at != name.npos; at = name.find(sep, at + sep.size()))
      starts_.push_back(at + sep.size());
  std::uint64_t hash = hash_start;
  std::size_t end = name.size();
  for (; !starts_.empty(); starts_.pop_back()) {
    std::size_t const start = starts_.back();
    hash = add_to_hash(hash, name.substr(start, end - start));
    end = start;
    if (start < name.size())
      enter(hash, unit);
  }
}

gDocTable::Slot * gDocTable::slot(std::uint64_t hash) const {
  std::size_t const mask = slots_.size() - 1;
  std::size_t i = spread(hash) & mask;
  while (slots_[i].first != 0 && slots_[i].hash != hash)
    i = (i + 1) & mask;
  return const_cast<Slot *>(&slots_[i]);
}

void gDocTable::enter(std::uint64_t hash, gDocUnit & unit) {
  if (used_ * 10 >= slots_.size() * 7)
    grow();
  if (postings_.empty())
    postings_.push_back({nullptr, 0});
  auto const number = static_cast<std::uint32_t>(postings_.size());
  postings_.push_back({&unit, 0});
  Slot * at = slot(hash);
  if (at->first == 0) {
    *at = {hash, number, number};
    ++used_;
  } else {
    postings_[at->last].next = number;
    at->last = number;
  }
}

void gDocTable::grow() {
  std::vector<Slot> old(std::max<std::size_t>(64, slots_.size() * 2), Slot{0, 0, 0});
  old.swap(slots_);
  for (Slot const & one : old)
    if (one.first != 0)
      *slot(one.hash) = one;
}

std::uint32_t gDocTable::first(std::string_view name) const {
  if (slots_.empty() || name.empty())
    return 0;
  std::uint32_t const chain = slot(add_to_hash(hash_start, name))->first;
  return chain != 0 && postings_[chain].unit->name().ends_with(name) ? chain : 0;
}

gDocUnit * gDocTable::nearest(gOutline const & from, std::string_view name) const {
  std::uint32_t const chain = first(name);
  std::uint32_t length = 0;
  for (std::uint32_t at = chain; at != 0 && length <= long_chain; at = postings_[at].next)
    ++length;
  if (length <= long_chain)
    return nearest_in_chain(from, chain);
  return nearest_in_places(from, places(*slot(add_to_hash(hash_start, name))));
}

gDocUnit * gDocTable::nearest_in_chain(gOutline const & from, std::uint32_t chain) const {
  gDocUnit * best = nullptr;
  for (std::uint32_t at = chain; at != 0; at = postings_[at].next) {
    gDocUnit * unit = postings_[at].unit;
    if (!has_bookmark(*unit))
      continue;
    if (!best || (unit->outline() != from && nearer(from, unit->outline(), best->outline())))
      best = unit;
  }
  return best;
}

gDocTable::Places const & gDocTable::places(Slot const & chain) const {
  Places & made = places_[chain.first];
  if (made.last == chain.last)
    return made;
  made = Places();
  made.last = chain.last;
  for (std::uint32_t at = chain.first; at != 0; at = postings_[at].next)
    if (has_bookmark(*postings_[at].unit))
      made.list.push_back({postings_[at].unit, at});
  if (made.list.empty())
    return made;
  made.first_unit = made.list.front().unit;
  auto const outline = [](Place const & place) -> gOutline const & {
    return place.unit->outline();
  };
  std::stable_sort(made.list.begin(), made.list.end(),
                   [&](Place const & a, Place const & b) { return outline(a) < outline(b); });
  auto const rest =
      std::unique(made.list.begin(), made.list.end(),
                  [&](Place const & a, Place const & b) { return outline(a) == outline(b); });
  made.list.erase(rest, made.list.end());
  made.list.shrink_to_fit();
  return made;
}

// Narrows each range, whose places agree in the lesser depths, to those that are nearest to the
// wanted count at this depth. Two counts can be equally near, so the number of ranges may double.
void gDocTable::keep_nearest(std::vector<Range> & ranges, int depth, int wanted) {
  auto const count = [depth](Place const & place) { return place.unit->outline()[depth]; };
  auto const below = [&](Place const & place, int n) { return count(place) < n; };
  auto const above = [&](int n, Place const & place) { return n < count(place); };
  int least = -1;
  std::vector<Range> nearest;
  auto const consider = [&](Range const & range, Place const & place) {
    int const distance = std::abs(count(place) - wanted);
    if (least >= 0 && distance > least)
      return;
    if (distance < least || least < 0)
      nearest.clear();
    least = distance;
    nearest.emplace_back(std::lower_bound(range.first, range.second, count(place), below),
                         std::upper_bound(range.first, range.second, count(place), above));
  };
  for (Range const & range : ranges) {
    Place const * at = std::lower_bound(range.first, range.second, wanted, below);
    if (at != range.first)
      consider(range, at[-1]);
    if (at != range.second)
      consider(range, *at);
  }
  ranges.swap(nearest);
}

gDocUnit * gDocTable::nearest_in_places(gOutline const & from, Places const & places) {
  if (places.list.empty() || places.first_unit->outline() == from)
    return places.first_unit;
  Place const * const begin = places.list.data();
  Place const * const end = begin + places.list.size();
  Place const * const same =
      std::lower_bound(begin, end, from, [](Place const & place, gOutline const & outline) {
        return place.unit->outline() < outline;
      });
  bool const found = same != end && same->unit->outline() == from;
  std::vector<Range> ranges = {{begin, same}, {same + found, end}};
  for (int depth = 0; depth < 8; ++depth)
    keep_nearest(ranges, depth, from[depth]);
  Place const * best = ranges.front().first;
  for (Range const & range : ranges)
    if (range.first->order < best->order)
      best = range.first;
  return best->unit;
}

void gDocTable::clear() {
  slots_.clear();
  slots_.shrink_to_fit();
  used_ = 0;
  postings_.clear();
  postings_.shrink_to_fit();
  places_.clear();
}
