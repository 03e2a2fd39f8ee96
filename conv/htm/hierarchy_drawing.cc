// Names are long and lie down, so layers are columns. All text has one pitch: its width is known
// without a font.

#include "conv/htm/hierarchy_drawing.h"

#include <algorithm>
#include <map>

namespace {

constexpr int pitch = 8, padding = 10, column_gap = 44, row_gap = 8, border = 2;
constexpr std::size_t longest_name = 36; // characters

using gColumns = std::map<int, std::vector<std::size_t>>; // nodes by layers

bool continues(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

std::size_t characters(std::string_view text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char c) { return !continues(c); }));
}

// The end of a name says more than its scope.
std::string shown(std::string const & name) {
  if (characters(name) <= longest_name)
    return name;
  std::size_t begin = name.size(), count = 1;
  while (begin > 0 && count < longest_name)
    count += !continues(name[--begin]);
  while (begin < name.size() && continues(name[begin]))
    ++begin;
  return "\u2026" + name.substr(begin);
}

// Each column goes by the places of those that it is connected with in the column nearer to the
// middle.
void sort_columns(gHierarchyGraph const & graph, gColumns & columns) {
  std::vector<double> place(graph.nodes.size(), 0);
  auto const neighbours = [&](std::size_t node, int step) {
    double sum = 0;
    int count = 0;
    for (gHierarchyEdge const & edge : graph.edges) {
      std::size_t const near = step > 0 ? edge.above : edge.below;
      if ((step > 0 ? edge.below : edge.above) != node)
        continue;
      sum += place[near];
      ++count;
    }
    return count > 0 ? sum / count : 0;
  };
  for (int const step : {1, -1})
    for (int layer = step; columns.contains(layer); layer += step) {
      std::vector<std::size_t> & nodes = columns[layer];
      std::map<std::size_t, double> wanted;
      for (std::size_t const node : nodes)
        wanted[node] = neighbours(node, step);
      std::ranges::stable_sort(nodes, {}, [&](std::size_t node) { return wanted[node]; });
      double const top = -0.5 * static_cast<double>(nodes.size() - 1);
      for (std::size_t i = 0; i < nodes.size(); ++i)
        place[nodes[i]] = top + static_cast<double>(i);
    }
}

} // namespace

gDrawing Hierarchy::draw(gNodeList const & steps) {
  gDrawing drawing;
  drawing.graph = graph(steps);
  gColumns columns;
  std::size_t most = 0;
  for (std::size_t i = 0; i < drawing.graph.nodes.size(); ++i) {
    gHierarchyNode const & node = drawing.graph.nodes[i];
    gDrawnBox box;
    box.text = shown(plain_text(node.step->children));
    box.width = static_cast<int>(characters(box.text)) * pitch + 2 * padding;
    drawing.boxes.push_back(std::move(box));
    columns[node.layer].push_back(i);
    most = std::max(most, columns[node.layer].size());
  }
  sort_columns(drawing.graph, columns);
  constexpr int row = gDrawing::box_height + row_gap;
  drawing.height = static_cast<int>(most) * row - row_gap + 2 * border;
  int x = border;
  for (auto const & [layer, nodes] : columns) {
    int width = 0;
    int y = (drawing.height - static_cast<int>(nodes.size()) * row + row_gap) / 2;
    for (std::size_t const node : nodes) {
      gDrawnBox & box = drawing.boxes[node];
      box.x = x;
      box.y = y;
      y += row;
      width = std::max(width, box.width);
    }
    // Boxes of one column are alike, so that lines begin and end in a row.
    for (std::size_t const node : nodes)
      drawing.boxes[node].width = width;
    x += width + column_gap;
  }
  drawing.width = std::max(x - column_gap + border, 0);
  return drawing;
}
