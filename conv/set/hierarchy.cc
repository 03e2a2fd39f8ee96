// Bases stand behind their own bases, derived classes in front of what derives from them; the
// levels tell which belongs to which.

#include "conv/set/hierarchy.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <vector>

namespace {

// Levels of a damaged file must not become nested calls without end.
constexpr int max_level = 300;

int level_of(gNode const & step) {
  std::string const & text = step.param(2);
  int level = 0;
  std::from_chars(text.data(), text.data() + text.size(), level);
  return std::clamp(level, 0, max_level);
}

struct gBase {
  gNode const * step;
  std::vector<gBase> bases;
};

class gTree {
public:
  gTree(gNodeList const & steps, Hierarchy::gSetItem const & set_item)
      : steps_(steps),
        set_item_(set_item) {}

  void set(std::string & out) {
    std::size_t at = 0;
    std::vector<gBase> const bases = read_bases(at);
    if (at == steps_.size())
      return;
    gBase const self{&steps_[at], bases};
    std::string derived;
    ++at;
    set_derived(at, height(self) + 2, -1, derived);
    set_base(self, derived, out);
  }

private:
  static int height(gBase const & base) {
    return base.bases.empty() ? 0 : 1 + height(base.bases.back());
  }
  // Each base takes those in front of it that are one level higher up.
  std::vector<gBase> read_bases(std::size_t & at) {
    std::vector<gBase> open;
    for (; at < steps_.size() && steps_[at].param(0) == "base"; ++at) {
      gBase base{&steps_[at], {}};
      std::size_t first = open.size();
      while (first > 0 && level_of(*open[first - 1].step) < level_of(steps_[at]))
        --first;
      for (std::size_t i = first; i < open.size(); ++i)
        base.bases.push_back(std::move(open[i]));
      open.resize(first);
      open.push_back(std::move(base));
    }
    return open;
  }
  // The class below each of its bases; `items` stand below the class.
  void set_base(gBase const & base, std::string_view items, std::string & out) {
    if (base.bases.empty())
      return set_item_({base.step, nullptr, 1, items}, out);
    for (std::size_t i = 0; i < base.bases.size(); ++i) {
      bool const last = i + 1 == base.bases.size();
      gBase const & above = base.bases[i];
      std::string inner;
      set_item_({base.step, above.step, height(base) + 1, last ? items : std::string_view()},
                inner);
      set_base(above, inner, out);
    }
  }
  // All steps that are deeper than `level`.
  void set_derived(std::size_t & at, int depth, int level, std::string & out) {
    while (at < steps_.size() && level_of(steps_[at]) > level) {
      gNode const & step = steps_[at++];
      std::string inner;
      set_derived(at, depth + 1, level_of(step), inner);
      set_item_({&step, &step, depth, inner}, out);
    }
  }

  gNodeList const & steps_;
  Hierarchy::gSetItem const & set_item_;
};

} // namespace

void Hierarchy::set(gNodeList const & steps, gSetItem const & set_item, std::string & out) {
  gTree(steps, set_item).set(out);
}

gNodeList Hierarchy::nearest(gNodeList const & steps, std::size_t most) {
  auto const self =
      std::ranges::find_if(steps, [](gNode const & s) { return s.param(0) == "this"; });
  int const level = self == steps.end() ? 0 : level_of(*self);
  auto const distance = [level](gNode const & step) {
    return static_cast<std::size_t>(std::abs(level_of(step) - level));
  };
  std::vector<std::size_t> counts(max_level + 1);
  for (gNode const & step : steps)
    ++counts[distance(step)];
  std::size_t whole =
      0; // distances below it are taken wholly, of the next one what there is room for
  std::size_t room = most;
  while (whole < counts.size() && counts[whole] <= room)
    room -= counts[whole++];
  gNodeList near;
  for (gNode const & step : steps) {
    bool const partly = distance(step) == whole && room > 0;
    if (distance(step) < whole || partly)
      near.push_back(step);
    room -= partly;
  }
  return near;
}
