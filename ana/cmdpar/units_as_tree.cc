// Units say what they are part of, so all parents are found first; then each top is walked down, by
// a list of its own, since authors may nest as deeply as they like.
#include "ana/cmdpar/units_as_tree.h"

#include <map>

namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);

// The first of the words that is one of the units; the unit itself isn't.
std::size_t parent_of(gDocUnit const & unit, std::size_t own,
                      std::map<gString, std::size_t, std::less<>> const & places) {
  std::string_view rest = unit.get_attr("TOPICS");
  while (!rest.empty()) {
    std::size_t const end = std::min(rest.find(' '), rest.size());
    auto const found = places.find(rest.substr(0, end));
    if (found != places.end() && found->second != own)
      return found->second;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return none;
}

class Tree {
public:
  explicit Tree(gUnitRefs const & units) : children_(units.size()), placed_(units.size()) {
    std::map<gString, std::size_t, std::less<>> places;
    for (std::size_t i = 0; i < units.size(); ++i)
      if (gString const & place = units[i]->get_attr("TOPIC"); place != "undefined")
        places.try_emplace(place, i);
    std::vector<std::size_t> tops;
    for (std::size_t i = 0; i < units.size(); ++i) {
      std::size_t const parent = parent_of(*units[i], i, places);
      (parent == none ? tops : children_[parent]).push_back(i);
    }
    for (std::size_t const top : tops)
      walk(top);
    for (std::size_t i = 0; i < units.size(); ++i) // circles
      walk(i);
  }
  std::vector<gPlacedUnit> take() { return std::move(order_); }

private:
  void walk(std::size_t top) {
    std::vector<gPlacedUnit> ahead{{top, 0}};
    while (!ahead.empty()) {
      gPlacedUnit const next = ahead.back();
      ahead.pop_back();
      if (placed_[next.unit])
        continue;
      placed_[next.unit] = true;
      order_.push_back(next);
      std::vector<std::size_t> const & below = children_[next.unit];
      for (auto child = below.rbegin(); child != below.rend(); ++child)
        ahead.push_back({*child, next.depth + 1});
    }
  }

  std::vector<std::vector<std::size_t>> children_;
  std::vector<bool> placed_;
  std::vector<gPlacedUnit> order_;
};

} // namespace

std::vector<gPlacedUnit> units_as_tree(gUnitRefs const & units) {
  return Tree(units).take();
}
