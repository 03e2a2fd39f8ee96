// Class hierarchies: a drawing among other things, and a page of its own for a long one.

#include "conv/htm/class_tree.h"
#include "conv/htm/hierarchy_drawing.h"
#include "conv/htm/htm_setter.h"
#include "conv/htm/slug.h"

namespace {
using V = gVltValue;
} // namespace

// The page is a file of its own beside those of sources, so its links lead one folder up.
std::string gHtmSetter::hierarchy_place(gNode const & node) {
  std::string const own = site_.addresses.href(unit());
  std::string const page = own.substr(0, own.rfind(".htm")),
                    number =
                        hierarchies_.empty() ? "" : "-" + std::to_string(hierarchies_.size() + 1);
  gHierarchyPage made;
  made.file = "_hierarchy/" + page + (own.ends_with(".htm") ? "" : "-" + Slug::hash({own})) +
              number + ".htm";
  int const here = std::exchange(page_, -1);
  root_ = "../";
  made.items = set_steps(node.children, long_hierarchy);
  root_ = {};
  page_ = here;
  made.all = node.children.size();
  made.shown = std::min(made.all, long_hierarchy);
  hierarchies_.push_back(std::move(made));
  return hierarchies_.back().file;
}

std::string gHtmSetter::class_tree_place() {
  return site_.class_tree && unit() >= 0 ? site_.class_tree->href(unit()) : std::string();
}

std::string gHtmSetter::hierarchy_drawing(gNodeList const & steps) {
  gDrawing const drawing = Hierarchy::draw(steps);
  if (drawing.boxes.size() < 2)
    return {};
  std::string lines, boxes;
  for (gHierarchyEdge const & edge : drawing.graph.edges)
    draw_line(drawing, edge, lines);
  for (std::size_t i = 0; i < drawing.boxes.size(); ++i)
    draw_box(drawing.boxes[i], *drawing.graph.nodes[i].step, boxes);
  std::string const width = std::to_string(drawing.width), height = std::to_string(drawing.height);
  std::string const id = claim("hierarchy"), count = std::to_string(drawing.boxes.size());
  std::string const title = unit() < 0 ? "" : escaped(site_.unit(unit()).title);
  gVltValues values;
  values.set(V::width, width).set(V::height, height).set(V::id, id).set(V::title, title);
  values.set(V::links, lines).set(V::items, boxes).set(V::count, count);
  std::string out;
  rules().apply(gVltRule::drawing, values, out);
  return out;
}

void gHtmSetter::draw_line(gDrawing const & drawing, gHierarchyEdge const & edge,
                           std::string & out) const {
  gDrawnBox const & from = drawing.boxes[edge.above];
  gDrawnBox const & to = drawing.boxes[edge.below];
  constexpr int half = gDrawing::box_height / 2;
  std::string const x = std::to_string(from.x + from.width), y = std::to_string(from.y + half);
  std::string const to_x = std::to_string(to.x), to_y = std::to_string(to.y + half);
  std::string const middle = std::to_string((from.x + from.width + to.x) / 2);
  gVltValues values;
  values.set(V::x, x).set(V::y, y).set(V::to_x, to_x).set(V::to_y, to_y).set(V::middle, middle);
  std::string const access = edge.step ? escaped(edge.step->param(3)) : "";
  values.set(V::access, access);
  values.set(V::is_virtual, !edge.step || edge.step->param(4).empty() ? "" : "1");
  rules().apply(gVltRule::drawn_line, values, out);
}

void gHtmSetter::draw_box(gDrawnBox const & box, gNode const & step, std::string & out) {
  gTarget const place = document().find_label(step.param(1));
  gLinkEnd const end = place && place.unit != unit() ? link_end(place) : gLinkEnd();
  std::string const x = std::to_string(box.x), y = std::to_string(box.y);
  std::string const width = std::to_string(box.width), text = escaped(box.text);
  std::string const height = std::to_string(gDrawing::box_height);
  std::string const name = escaped(plain_text(step.children));
  // Who says what is to be seen must hit the link, also if that is only the beginning of a name.
  bool const cut = plain_text(step.children).find(box.text) == std::string::npos;
  std::string const label = cut ? text + " " + name : name;
  std::string const middle = std::to_string(box.x + box.width / 2);
  gVltValues values;
  values.set(V::x, x).set(V::y, y).set(V::width, width).set(V::height, height);
  values.set(V::text, text).set(V::name, name).set(V::href, end.href).set(V::middle, middle);
  values.set(V::title, label);
  rules().apply(gVltRule::drawn_box, step.param(0), values, out);
}
