// Units have a handful of attributes and subentries, so these are searched from the front.
#include "ana/anadat/gfilefacts.h"

#include <algorithm>

gString const & gUnitFacts::attribute(std::string_view name) const {
  static gString const undefined = "undefined";
  auto const at = std::ranges::find(attributes, name, &Attribute::name);
  return at == attributes.end() ? undefined : at->value;
}

void gUnitFacts::set_attribute(gString const & name, gString const & value) {
  auto const at = std::ranges::find(attributes, name, &Attribute::name);
  if (at == attributes.end())
    attributes.push_back({name, value});
  else
    at->value = value;
}

void gUnitFacts::add_subentry(gString const & name, gStrList text) {
  auto const at = std::ranges::find(subentries, name, &Subentry::name);
  if (at == subentries.end())
    subentries.push_back({name, std::move(text)});
  else
    at->text.append(std::move(text));
}

// A unit's line is that of its keyword; nothing else promises an order.
void gTextFacts::note_lines() {
  unit_lines.clear();
  unit_lines.reserve(units.size());
  for (gUnitFacts const & unit : units)
    unit_lines.push_back(unit.place.line);
  std::ranges::sort(unit_lines);
}
