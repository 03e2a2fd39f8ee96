// Each function is one paragraph of the rules, without any thought of cost.

#include "literal_association.h"

#include <climits>

namespace {

template <class Table>
bool blocked(Table const & table, gSrcFile const & file, int a, int b, bool exclusive) {
  int const low = std::min(a, b), high = std::max(a, b);
  auto const * map = table.map_of(file);
  if (!map)
    return false;
  for (auto const & [place, entry] : *map) {
    int const line = place.line;
    if (line < high && (line > low || (!exclusive && line == low)))
      return true;
  }
  return false;
}

bool names_match(gCodeElem const & ce, gDocUnit const & unit) {
  std::string const sep = ce.loc.file().name_sep();
  std::string name = ce.name();
  while (name != unit.name()) {
    std::size_t const cut = name.find(sep);
    if (cut == std::string::npos)
      return false;
    name.erase(0, cut + sep.size());
  }
  return true;
}

} // namespace

template <class Text>
bool LiteralAssociation::take(Text & text, cRef<gCodeElem> const & ce, int rank) {
  cRef<gCodeElem> const old = text.code_elem();
  if (old && text.rank() >= rank)
    return false;
  text.bind(ce, rank);
  if (old)
    associate(old);
  return true;
}

template <class Table>
bool LiteralAssociation::near(Table const & table, cRef<gCodeElem> const & ce, bool before,
                              bool comment, int rank) {
  auto const * map = table.map_of(ce->loc.file());
  if (!map)
    return false;
  typename Table::Map::Entry const * candidate = nullptr;
  for (auto const & entry : *map) {
    if (before ? entry.place.line < ce->loc.line() : entry.place.line >= ce->loc.line()) {
      candidate = &entry;
      if (!before)
        break;
    }
  }
  if (!candidate)
    return false;
  gSrcFile const & file = ce->loc.file();
  int const line = ce->loc.line(), other = candidate->place.line;
  if (blocked(gNamedUnits, file, line, other, before) ||
      (comment && blocked(gUnnamedUnits, file, line, other, before)) ||
      blocked(gCodeElems, file, line, other, before))
    return false;
  return take(*candidate->object, ce, rank);
}

bool LiteralAssociation::named(cRef<gCodeElem> const & ce, int first, int end, int rank) {
  auto const * map = gNamedUnits.map_of(ce->loc.file());
  if (!map)
    return false;
  for (auto const & [place, unit] : *map) {
    if (place.line >= first && place.line < end && names_match(*ce, *unit) && take(*unit, ce, rank))
      return true;
  }
  return false;
}

bool LiteralAssociation::far(cRef<gCodeElem> const & ce, bool folders, int rank) {
  cRef<gUnitList> * list = gUnitNames.lookup(ce->name());
  if (!list)
    return false;
  gPathstring const own = ce->loc.file().opath();
  for (cRef<gDocUnit> const & unit : (*list)->units) {
    gPathstring const path = unit->loc().file().opath();
    bool const same = folders ? path.dir_name() == own.dir_name() : path.compare_i(own) == 0;
    if (!same && take(*unit, ce, rank))
      return true;
  }
  return false;
}

bool LiteralAssociation::try_method(int method, cRef<gCodeElem> const & ce, int rank) {
  int const line = ce->loc.line();
  switch (method) {
  case 1:
    return near(gComments, ce, true, true, rank);
  case 2:
    return near(gComments, ce, false, true, rank);
  case 3:
    return near(gUnnamedUnits, ce, true, false, rank);
  case 4:
    return near(gUnnamedUnits, ce, false, false, rank);
  case 5:
    return named(ce, 1, line, rank);
  case 6:
    return named(ce, line, INT_MAX, rank);
  case 7:
    return far(ce, false, rank);
  case 8:
    return far(ce, true, rank);
  }
  return false;
}

bool LiteralAssociation::should_generate(gCodeElem const & ce) const {
  if (!(ce.type & options_.gen_unit))
    return false;
  if (!options_.gen_private && ce.visibility == "private")
    return false;
  if (!options_.gen_static && (ce.type == ut_function || ce.type == ut_var) &&
      (ce.flags & spec_static))
    return false;
  return options_.gen_extern || ce.type != ut_var || !(ce.flags & spec_extern);
}

void LiteralAssociation::associate(cRef<gCodeElem> const & ce) {
  for (int i = 0; i < 8; ++i) {
    if (options_.prio[i] > 0 && try_method(options_.order[i], ce, options_.prio[i]))
      return;
  }
  if (should_generate(*ce))
    gGeneratedUnits.set(ce->name() + "@" + ce->loc.make_string(), {});
}
