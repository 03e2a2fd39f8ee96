// Sets of positions to states. Bytes that no position tells apart share a class, which keeps the
// table small enough for the cache.
#include <algorithm>
#include <map>

#include "vlb/gexception.h"
#include "vlb/parse/automaton.h"

class gDfaBuilder {
public:
  gDfaBuilder(gPositions const & positions, gDfa & dfa) : positions_(positions.all()), dfa_(dfa) {}

  void build(std::vector<std::vector<int>> const & starts) {
    make_classes();
    state_of({}); // the dead state
    for (std::vector<int> const & start : starts)
      dfa_.starts_.push_back(state_of(start));
    for (std::size_t state = 0; state < sets_.size(); ++state)
      fill_row(state);
    dfa_.accepted_.push_back(static_cast<std::uint32_t>(dfa_.rules_.size()));
  }

private:
  using Set = std::vector<int>;

  // Splits the classes by one set after the other.
  void make_classes() {
    int count = 1;
    std::vector<gByteSet> seen;
    for (auto const & position : positions_) {
      if (std::find(seen.begin(), seen.end(), position.bytes) != seen.end())
        continue;
      seen.push_back(position.bytes);
      count = split_classes(position.bytes);
    }
    while ((1 << dfa_.shift_) < count)
      ++dfa_.shift_;
    members_.resize(positions_.size());
    for (std::size_t i = 0; i < positions_.size(); ++i)
      for (std::size_t byte = 0; byte < 256; ++byte)
        if (positions_[i].bytes[byte])
          members_[i].push_back(dfa_.classes_[byte]);
    for (auto & classes : members_)
      make_set(classes);
  }

  int split_classes(gByteSet const & bytes) {
    std::map<std::pair<int, bool>, int> numbers;
    for (std::size_t byte = 0; byte < 256; ++byte) {
      auto const next = static_cast<int>(numbers.size());
      int const number =
          numbers.emplace(std::pair(dfa_.classes_[byte], bytes[byte]), next).first->second;
      dfa_.classes_[byte] = static_cast<std::uint8_t>(number);
    }
    return static_cast<int>(numbers.size());
  }

  template <class T> static void make_set(std::vector<T> & list) {
    std::sort(list.begin(), list.end());
    list.erase(std::unique(list.begin(), list.end()), list.end());
  }

  gDfa::State state_of(Set set) {
    make_set(set);
    auto const [place, is_new] = numbers_.emplace(std::move(set), sets_.size());
    if (is_new) {
      VLB_ASSERT(sets_.size() < 0xFFFF);
      sets_.push_back(&place->first);
    }
    return static_cast<gDfa::State>(place->second);
  }

  void fill_row(std::size_t state) {
    std::vector<Set> targets(std::size_t(1) << dfa_.shift_);
    std::vector<std::uint16_t> rules;
    for (int index : *sets_[state]) {
      auto const & position = positions_[static_cast<std::size_t>(index)];
      if (position.rule >= 0)
        rules.push_back(static_cast<std::uint16_t>(position.rule));
      for (std::uint8_t one : members_[static_cast<std::size_t>(index)])
        targets[one].insert(targets[one].end(), position.follow.begin(), position.follow.end());
    }
    for (Set & target : targets)
      dfa_.next_.push_back(state_of(std::move(target)));
    make_set(rules);
    dfa_.first_rule_.push_back(rules.empty() ? std::int16_t(gDfa::no_rule)
                                             : static_cast<std::int16_t>(rules.front()));
    dfa_.accepted_.push_back(static_cast<std::uint32_t>(dfa_.rules_.size()));
    dfa_.rules_.insert(dfa_.rules_.end(), rules.begin(), rules.end());
  }

  std::vector<gPositions::Position> const & positions_;
  gDfa & dfa_;
  std::vector<std::vector<std::uint8_t>> members_; // classes of each position
  std::map<Set, std::size_t> numbers_;
  std::vector<Set const *> sets_;
};

gDfa::gDfa(gPositions const & positions, std::vector<std::vector<int>> const & starts) {
  gDfaBuilder(positions, *this).build(starts);
}

// Most bytes of long tokens lead from a state to itself. There the row stays the same and the loop
// waits for no earlier load, so it runs much faster than the general step.
gDfa::Walk gDfa::walk(State begin, char const * text, char const * stop) const {
  Walk walk{text, nullptr, 0, no_rule};
  State state = begin;
  char const * at = text;
  std::uint8_t const * const classes = classes_.data();
  for (;;) {
    State const * const here = row(state);
    State next = 0;
    while (at != stop && (next = here[classes[static_cast<unsigned char>(*at)]]) == state)
      ++at;
    if (first_rule_[state] >= 0 && at != text) {
      walk.accepted = at;
      walk.state = state;
    }
    if (at == stop || !next)
      break;
    state = next;
    ++at;
  }
  walk.end = at;
  if (walk.accepted)
    walk.rule = first_rule_[walk.state];
  return walk;
}
