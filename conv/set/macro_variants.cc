// Which one a reader gets depends on his own switches, so none is left out.
#include "conv/set/macro_variants.h"

#include <algorithm>

#include "conv/set/new_nodes.h"

namespace {

constexpr std::size_t longest = 400; // of a value; a macro may hold a program

using NewNode::code;
using NewNode::of;
using NewNode::text;

std::string shown(std::string const & definition) {
  if (definition.size() <= longest)
    return definition;
  std::size_t end = longest;
  while (end > 0 && (static_cast<unsigned char>(definition[end]) & 0xC0) == 0x80)
    --end;
  return definition.substr(0, end) + " \u2026";
}

gNode row_of(gNode first, gNode second) {
  return of(gNodeKind::row,
            {of(gNodeKind::cell, {std::move(first)}), of(gNodeKind::cell, {std::move(second)})});
}

gNode table_of(std::vector<gVariantFact> const & variants, gVltRules const & rules) {
  gNode table = of(gNodeKind::table);
  table.params = {"definitions", "*,*", "", "first"};
  table.children.push_back(row_of(text(rules.setting("definition_title", "Definition")),
                                  text(rules.setting("where_title", "Where"))));
  for (gVariantFact const & one : variants)
    table.children.push_back(
        row_of(code(shown(one.text)), one.condition.empty()
                                          ? text(rules.setting("everywhere_title", "anywhere"))
                                          : code(one.condition)));
  return table;
}

} // namespace

void MacroVariants::set_into(gUnitRecord const & unit, gVltRules const & rules, gNodeList & body) {
  if (unit.facts.variants.empty())
    return;
  gNode title = of(gNodeKind::title, {text(rules.setting("definitions_title", "Definitions"))});
  gNode part = of(gNodeKind::subentry, {std::move(title), table_of(unit.facts.variants, rules)});
  auto const declaration = std::ranges::find(body, gNodeKind::subentry, &gNode::kind);
  body.insert(declaration == body.end() ? body.begin() : std::next(declaration), std::move(part));
}
