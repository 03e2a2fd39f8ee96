// Blocks of a text: paragraphs, headlines, subentries, the link line, lists, verbatim text and
// class hierarchies.

#include <algorithm>

#include "conv/set/hierarchy.h"
#include "conv/set/setter.h"

namespace {

// What stands between the references of a link line is punctuation of its author, which the script
// replaces by its own.
bool separates(gNode const & node) {
  return node.kind == gNodeKind::text && std::ranges::all_of(node.text, [](char c) {
           return Vlb::is_space(c) || c == ',' || c == ';';
         });
}

bool is_link(gNode const & node) {
  using enum gNodeKind;
  return node.kind == reference || node.kind == name_ref || node.kind == source_link;
}

} // namespace

void gSetter::set_block(gNode const & node, std::string & out) {
  using enum gNodeKind;
  switch (node.kind) {
  case paragraph:
    return set_paragraph(gVltRule::p, node, out);
  case headline:
    return set_headline(node, out);
  case subentry:
    return set_subentry(node, out);
  case title:
  case subtitle:
    return set_paragraph(gVltRule::subtitle, node, out);
  case link_line:
    return set_link_line(node, out);
  case verbatim:
    return set_verbatim(node, false, out);
  case enumeration:
  case numbering:
    return set_list(node, out);
  case quote: {
    std::string const inner = set(node.children);
    return rules_.apply(gVltRule::quote, gVltValues().set(gVltValue::items, inner), out);
  }
  case rule:
    return rules_.apply(gVltRule::rule, gVltValues(), out);
  case table:
    return set_table(node, out);
  case hierarchy:
    return set_hierarchy(node, out);
  default: // parts of blocks that aren't there
    return set(node.children, out);
  }
}

void gSetter::set_paragraph(gVltRule rule, gNode const & node, std::string & out) {
  std::string const text = set(node.children);
  std::string const width = indentation();
  gVltValues values;
  values.set(gVltValue::text, text).set(gVltValue::width, width);
  if (rule == gVltRule::subtitle)
    values.set(gVltValue::title, text);
  rules_.apply(rule, rule == gVltRule::p && list_level_ > 0 ? "item" : "", values, out);
}

void gSetter::set_headline(gNode const & node, std::string & out) {
  using enum gVltValue;
  std::string const inner = set(node.children);
  std::string const place = headline_anchor(node);
  std::string const toc = escaped(node.param(1));
  std::string const depth = headline_level(node);
  gVltValues values;
  values.set(text, inner).set(id, place).set(title, toc).set(level, depth);
  rules_.apply(gVltRule::sub, node.param(0), values, out);
}

void gSetter::set_subentry(gNode const & node, std::string & out) {
  using enum gVltValue;
  bool const titled = !node.children.empty() && node.children[0].kind == gNodeKind::title;
  gNode const * const head = titled ? &node.children[0] : nullptr;
  std::size_t const first = titled ? 1 : 0;
  std::string inner;
  if (node.children.size() == first + 1 && node.children[first].kind == gNodeKind::verbatim)
    set_verbatim(node.children[first], true, inner);
  else
    for (std::size_t i = first; i < node.children.size(); ++i)
      set_node(node.children[i], inner);
  std::string const words = head ? plain_text(head->children) : std::string();
  std::string const shown = escaped(words);
  std::string const heading = head ? set(head->children) : std::string();
  std::string const class_name = class_word(words);
  gVltValues values;
  values.set(text, inner).set(title, heading).set(name, shown).set(kind_class, class_name);
  rules_.apply(gVltRule::subentry, words, values, out);
}

void gSetter::set_link_line(gNode const & node, std::string & out) {
  std::string links;
  for (gNode const & child : node.children) {
    if (separates(child))
      continue;
    std::string one;
    set_node(child, one);
    if (is_link(child))
      rules_.apply(gVltRule::link, gVltValues().set(gVltValue::text, one), links);
    else
      links += one;
  }
  if (links.empty())
    return;
  gVltValues values;
  values.set(gVltValue::items, links).set(gVltValue::text, links);
  rules_.apply(gVltRule::linkline, values, out);
}

void gSetter::set_verbatim(gNode const & node, bool declaration, std::string & out) {
  std::string const text = escaped(node.text);
  rules_.apply(declaration ? gVltRule::declaration : gVltRule::verbatim,
               gVltValues().set(gVltValue::text, text), out);
}

void gSetter::set_item(gNode const & item, std::string & text, std::string &) {
  set(item.children, text);
}

void gSetter::set_list(gNode const & node, std::string & out) {
  using enum gVltValue;
  bool const numbered = node.kind == gNodeKind::numbering;
  std::string const & list_style = node.param(0);
  std::string const shown_style = escaped(list_style);
  std::string const depth = std::to_string(++list_level_);
  std::string all;
  int items_done = 0;
  for (gNode const & item : node.children) {
    std::string inner, below;
    set_item(item, inner, below);
    std::string const index = std::to_string(++items_done), space = indentation();
    gVltValues values;
    values.set(text, inner).set(items, below).set(width, space);
    values.set(number, index).set(style, shown_style).set(level, depth);
    rules_.apply(numbered ? gVltRule::step_item : gVltRule::item, list_style, values, all);
  }
  --list_level_;
  gVltValues values;
  values.set(items, all).set(style, shown_style).set(level, depth);
  rules_.apply(numbered ? gVltRule::numbering : gVltRule::enumeration, list_style, values, out);
}

// A class that is reached on many ways has as many steps, so a tree may have thousands for each of
// a hundred classes; what is set of it must not grow with them.
void gSetter::set_hierarchy(gNode const & node, std::string & out) {
  std::size_t const all = node.children.size();
  std::string const place = all > short_hierarchy ? hierarchy_place(node) : std::string();
  std::size_t const most = place.empty() ? long_hierarchy : short_hierarchy;
  std::string const steps = set_steps(node.children, most);
  std::string const shapes =
      hierarchy_drawing(all > most ? Hierarchy::nearest(node.children, most) : node.children);
  std::string const count = all > most ? std::to_string(all) : std::string();
  gVltValues values;
  values.set(gVltValue::items, steps).set(gVltValue::href, place);
  std::string const whole = std::to_string(all);
  values.set(gVltValue::number, count).set(gVltValue::count, whole);
  std::string const tree = class_tree_place();
  values.set(gVltValue::drawing, shapes).set(gVltValue::class_tree, tree);
  values.set(gVltValue::mark, all >= folded_hierarchy ? "1" : "");
  rules_.apply(gVltRule::hierarchy, values, out);
}

std::string gSetter::set_steps(gNodeList const & steps, std::size_t most) {
  std::string out;
  auto const set_one = [this](gHierarchyItem const & item, std::string & to) {
    set_step(item, to);
  };
  if (steps.size() > most)
    Hierarchy::set(Hierarchy::nearest(steps, most), set_one, out);
  else
    Hierarchy::set(steps, set_one, out);
  return out;
}

std::string gSetter::hierarchy_place(gNode const &) {
  return {};
}

std::string gSetter::hierarchy_drawing(gNodeList const &) {
  return {};
}

std::string gSetter::step_indentation(int) const {
  return {};
}

void gSetter::set_step(gHierarchyItem const & item, std::string & out) {
  using enum gVltValue;
  gTarget const place = document_.find_label(item.step->param(1));
  gLinkEnd const end = place ? link_end(place) : gLinkEnd();
  std::string const inner = escaped(plain_text(item.step->children));
  std::string const depth = std::to_string(item.depth), space = step_indentation(item.depth);
  gVltValues values;
  values.set(text, inner).set(href, end.href).set(target, end.title).set(context, end.context);
  values.set(level, depth).set(width, space).set(items, item.items);
  std::string rights, shown_label;
  if (item.edge) {
    rights = escaped(item.edge->param(3));
    shown_label = escaped(item.edge->param(5));
    values.set(access, rights).set(label, shown_label);
    values.set(gVltValue::is_virtual, item.edge->param(4).empty() ? "" : "1");
  }
  rules_.apply(gVltRule::step, item.step->param(0), values, out);
}
