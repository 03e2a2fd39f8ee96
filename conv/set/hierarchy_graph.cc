// The steps are a walk: bases behind their own bases, derived classes in front of what derives from
// them. A class is known by its label or, without one, by its name.

#include "conv/set/hierarchy_graph.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>
#include <string>

namespace {

int level_of(gNode const & step) {
  std::string const & text = step.param(2);
  int level = 0;
  std::from_chars(text.data(), text.data() + text.size(), level);
  return level;
}

class gMaker {
public:
  gHierarchyGraph make(gNodeList const & steps) {
    auto const self =
        std::ranges::find_if(steps, [](gNode const & step) { return step.param(0) == "this"; });
    if (self == steps.end())
      return {};
    std::vector<Place> open;
    for (auto step = steps.begin(); step != self; ++step)
      add_base(*step, open);
    std::size_t const centre = enter(*self);
    for (Place const & base : open)
      connect(base.node, centre, base.step);
    std::vector<Place> above{{centre, level_of(*self), nullptr}};
    for (auto step = self + 1; step != steps.end(); ++step) {
      while (above.size() > 1 && above.back().level >= level_of(*step))
        above.pop_back();
      std::size_t const node = enter(*step);
      connect(above.back().node, node, &*step);
      above.push_back({node, level_of(*step), &*step});
    }
    set_layers(centre);
    return std::move(graph_);
  }

private:
  struct Place {
    std::size_t node;
    int level;
    gNode const * step;
  };

  std::size_t enter(gNode const & step) {
    std::string key = step.param(1).empty() ? ' ' + plain_text(step.children) : step.param(1);
    auto const [found, added] = numbers_.try_emplace(std::move(key), graph_.nodes.size());
    if (added)
      graph_.nodes.push_back({&step, 0});
    return found->second;
  }
  void connect(std::size_t above, std::size_t below, gNode const * step) {
    if (above != below && connected_.emplace(above, below).second)
      graph_.edges.push_back({above, below, step});
  }
  // Those in front that stand higher are the bases of this one.
  void add_base(gNode const & step, std::vector<Place> & open) {
    std::size_t const node = enter(step);
    while (!open.empty() && open.back().level < level_of(step)) {
      connect(open.back().node, node, open.back().step);
      open.pop_back();
    }
    open.push_back({node, level_of(step), &step});
  }
  // The farthest way counts, so that all lines lead in one direction.
  void set_layers(std::size_t centre) {
    for (bool const up : {true, false}) {
      std::vector<int> distance(graph_.nodes.size(), -1);
      distance[centre] = 0;
      bool moved = true;
      for (std::size_t round = 0; moved && round < graph_.nodes.size(); ++round) {
        moved = false;
        for (gHierarchyEdge const & edge : graph_.edges) {
          std::size_t const from = up ? edge.below : edge.above, to = up ? edge.above : edge.below;
          if (distance[from] < 0 || distance[to] > distance[from] || to == centre)
            continue;
          distance[to] = distance[from] + 1;
          moved = true;
        }
      }
      for (std::size_t i = 0; i < distance.size(); ++i)
        if (distance[i] > 0)
          graph_.nodes[i].layer = up ? -distance[i] : distance[i];
    }
  }

  gHierarchyGraph graph_;
  std::map<std::string, std::size_t> numbers_;
  std::set<std::pair<std::size_t, std::size_t>> connected_;
};

} // namespace

gHierarchyGraph Hierarchy::graph(gNodeList const & steps) {
  return gMaker().make(steps);
}
