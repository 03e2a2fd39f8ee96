// Topics are named by those that belong to them, namespaces by the names of what they hold.
#include "conv/set/holdings.h"

#include <algorithm>
#include <string_view>

#include "conv/atc/qualified_name.h"

namespace {

bool is_name_space(gUnitRecord const & unit) {
  constexpr std::string_view kinds[] = {"namespace", "module",  "unit",
                                        "program",   "library", "package"};
  return std::ranges::find(kinds, unit.facts.kind) != std::end(kinds);
}

} // namespace

gHoldings::gHoldings(gDocument const & document) : document_(document) {
  std::unordered_map<std::string_view, int> spaces;
  auto const & units = document.units;
  for (std::size_t i = 0; i < units.size(); ++i)
    if (is_name_space(units[i]))
      spaces.try_emplace(units[i].name, static_cast<int>(i));
  for (std::size_t i = 0; i < units.size(); ++i) {
    auto const unit = static_cast<int>(i);
    if (!units[i].facts.known)
      continue;
    for (int const topic : topics_of(unit))
      if (topic != units[i].parent)
        members_[topic].push_back(unit);
    auto const space = units[i].name.empty() ? spaces.end() : spaces.find(Atc::scope_of(units[i]));
    if (space != spaces.end() && space->second != unit)
      members_[space->second].push_back(unit);
  }
}

std::span<int const> gHoldings::of(int unit) const {
  auto const found = members_.find(unit);
  return found == members_.end() ? std::span<int const>() : std::span<int const>(found->second);
}

std::vector<int> gHoldings::topics_of(int unit) const {
  std::vector<int> topics;
  for (std::string const & place : document_.units[static_cast<std::size_t>(unit)].facts.topics)
    if (int const topic = document_.find_label(place).unit; topic >= 0 && topic != unit)
      topics.push_back(topic);
  return topics;
}
