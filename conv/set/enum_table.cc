// A list of the text is about values if all of its items begin with one; the rest of an item is
// what is said about it. Words of the table are settings of the script.

#include "conv/set/enum_table.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "conv/set/new_nodes.h"
#include "vlb/gstring.h"

namespace {

using gNames = std::unordered_map<std::string, std::string_view>;
using gTexts = std::unordered_map<std::string_view, gNodeList>; // by the names of values

bool is_blank(gNode const & node) {
  return node.kind == gNodeKind::text && std::ranges::all_of(node.text, Vlb::is_space);
}

// The place of the value's name among the children of an item, or of its first paragraph.
gNodeList * begins_with_name(gNode & item, std::size_t & at) {
  gNodeList * nodes = &item.children;
  if (!nodes->empty() && nodes->front().kind == gNodeKind::paragraph)
    nodes = &nodes->front().children;
  for (at = 0; at < nodes->size() && is_blank((*nodes)[at]);)
    ++at;
  bool const named = at < nodes->size() && (*nodes)[at].kind == gNodeKind::tt;
  return named ? nodes : nullptr;
}

// Takes the texts out of a list; false, and nothing changes, if it is another one.
bool take_texts(gNode & list, gNames const & names, gTexts & texts) {
  std::size_t at = 0;
  for (gNode & item : list.children) {
    gNodeList const * const nodes = begins_with_name(item, at);
    if (!nodes || !names.contains(plain_text(std::span(&(*nodes)[at], 1))))
      return false;
  }
  for (gNode & item : list.children) {
    gNodeList & nodes = *begins_with_name(item, at);
    std::string_view const name = names.at(plain_text(std::span(&nodes[at], 1)));
    nodes.erase(nodes.begin(), nodes.begin() + static_cast<std::ptrdiff_t>(at) + 1);
    texts.try_emplace(name, std::move(item.children));
  }
  return true;
}

gNode cell(gNodeList children) {
  return NewNode::of(gNodeKind::cell, std::move(children));
}

// What is written says more than a number; where both are known and differ, both are shown.
gNodeList number_of(gValueFact const & value) {
  if (value.written.empty())
    return {NewNode::text(value.number)};
  gNodeList nodes{NewNode::code(value.written)};
  if (!value.number.empty() && value.number != value.written)
    nodes.push_back(NewNode::text(" (" + value.number + ")"));
  return nodes;
}

gNode table_of(std::vector<gValueFact> const & values, gTexts & texts, gVltRules const & rules,
               bool anchors) {
  bool const numbers = std::ranges::any_of(
      values, [](gValueFact const & v) { return !v.written.empty() || !v.number.empty(); });
  gNode table = NewNode::of(gNodeKind::table);
  gNode head =
      NewNode::of(gNodeKind::row, {cell({NewNode::text(rules.setting("value_title", "Value"))})});
  std::string widths = "*";
  auto const column = [&](std::string title) {
    head.children.push_back(cell({NewNode::text(std::move(title))}));
    widths += ",*";
  };
  if (numbers)
    column(rules.setting("number_title", "Number"));
  if (!texts.empty())
    column(rules.setting("text_title", "Meaning"));
  table.params = {"values", widths, "1", "first"};
  table.children.push_back(std::move(head));
  for (gValueFact const & value : values) {
    gNode row = NewNode::of(gNodeKind::row, {cell({NewNode::code(value.name)})});
    if (anchors) {
      gNode mark = NewNode::of(gNodeKind::bookmark);
      mark.params = {value.name};
      row.children[0].children.insert(row.children[0].children.begin(), std::move(mark));
    }
    if (numbers)
      row.children.push_back(cell(number_of(value)));
    if (!texts.empty()) {
      auto const text = texts.find(value.name);
      row.children.push_back(
          cell(text == texts.end() ? gNodeList() : std::exchange(text->second, {})));
    }
    table.children.push_back(std::move(row));
  }
  return table;
}

} // namespace

void EnumTable::set_into(gUnitRecord const & unit, gVltRules const & rules, bool anchors,
                         gNodeList & body) {
  std::vector<gValueFact> const & values = unit.facts.values;
  if (values.empty())
    return;
  gTexts texts;
  gNames names;
  for (gValueFact const & value : values)
    names.emplace(value.name, value.name);
  for (gNode & node : body)
    if (node.kind == gNodeKind::subentry)
      for (gNode & child : node.children)
        if (child.kind == gNodeKind::enumeration && take_texts(child, names, texts)) {
          child = table_of(values, texts, rules, anchors);
          return;
        }
  gNode title =
      NewNode::of(gNodeKind::title, {NewNode::text(rules.setting("values_title", "Values"))});
  body.push_back(NewNode::of(gNodeKind::subentry,
                             {std::move(title), table_of(values, texts, rules, anchors)}));
}
