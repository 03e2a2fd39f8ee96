// Reads gComments, gNamedUnits, gUnnamedUnits, gUnitNames and the class tables.
// Changes gCodeElems (types), binds texts to them, and fills gGeneratedUnits.
// Each code element in turn searches for a text. A text that a better method finds later changes
// hands, and the element that had it searches again.

#include "ana/association.h"

#include <limits>

#include "ana/anadat/input_table.h"
#include "ana/progress.h"
#include "ana/stages.h"
#include "app/options/run_flags.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

// A function or variable that belongs to a known class is its method or member. The parser can't
// tell where the definition stands outside the class.
void correct_type(gCodeElem & ce) {
  if (ce.kind != Decl::gKind::none)
    return; // settled by whole names
  if ((ce.type != ut_function && ce.type != ut_var) || ce.names.size() < 2)
    return;
  gString const & parent = **std::next(ce.names.rbegin());
  bool const pascal = ce.loc.file().language() == gLanguage::pascal;
  if ((pascal ? gPasClasses : gCppClasses).contains(parent))
    ce.type = ce.type == ut_function ? ut_method : ut_member;
}

// True if the table has an entry between the two places; with `inclusive` also at the lower one.
template <class Table>
bool blocked(Table const & table, gSrcFile const & file, gLinePlace a, gLinePlace b,
             bool inclusive) {
  auto const * map = table.map_of(file);
  auto const [low, high] = std::minmax(a, b);
  return map && map->has_in(inclusive ? low : low.next(), high);
}

void generate_unit(cRef<gCodeElem> const & ce) {
  gSrcFile const & file = ce->loc.file();
  // It takes its names from the code.
  auto unit = make_ref<gSyntUnit>(gStrList(), file.name_sep(), file, ce->loc.line());
  unit->bind(ce, 1);
  unit->update_from_code();
  gString const name = unit->name();
  if (auto * list = gGeneratedUnits.lookup(name))
    list->push_back(std::move(unit));
  else
    gGeneratedUnits.insert(name, {std::move(unit)});
}

} // namespace

gAllocOptions gAllocOptions::read() {
  gAssociationInput const & input = gInput->association;
  gAllocOptions options;
  options.order = input.order;
  options.prio = input.prio;
  options.gen_unit = input.gen_unit;
  options.gen_private = input.gen_private;
  options.gen_static = input.gen_static;
  options.gen_extern = input.gen_extern;
  return options;
}

gString const & gAssociation::Name::get() {
  if (text.empty())
    text = element.name();
  return text;
}

template <class Text>
gAssociation::Outcome gAssociation::take(Text & text, cRef<gCodeElem> const & ce, int rank) {
  cRef<gCodeElem> const old = text.code_elem();
  if (old && text.rank() >= rank)
    return {};
  text.bind(ce, rank);
  return {true, old};
}

// The one comment or unnamed unit next to the element, if nothing lies between the two.
template <class Table>
gAssociation::Outcome gAssociation::take_near(Table const & table, cRef<gCodeElem> const & ce,
                                              bool before, bool comment, int rank) const {
  gSrcFile const & file = ce->loc.file();
  auto const * map = table.map_of(file);
  if (!map)
    return {};
  gLinePlace const place = ce->place();
  auto candidate = map->lower_bound(place);
  if (candidate == (before ? map->begin() : map->end()))
    return {};
  if (before)
    --candidate;
  gLinePlace const other = candidate->place;
  if (!before && other.line > place.line)
    return {}; // a text behind an element begins on the element's line
  if (blocked(gNamedUnits, file, place, other, !before) ||
      (comment && blocked(gUnnamedUnits, file, place, other, !before)) ||
      blocked(gCodeElems, file, place, other, false))
    return {};
  return take(*candidate->object, ce, rank);
}

gFileUnits * gAssociation::units_of(gSrcFile const & file) {
  auto const * map = gNamedUnits.map_of(file);
  if (!map)
    return nullptr;
  std::unique_ptr<gFileUnits> & units = file_units_[map];
  if (!units)
    units = std::make_unique<gFileUnits>(*map);
  return units.get();
}

gAssociation::Outcome gAssociation::take_named(cRef<gCodeElem> const & ce, Name & name, bool before,
                                               int rank) {
  gFileUnits * units = units_of(ce->loc.file());
  if (!units)
    return {};
  constexpr gLinePlace last{std::numeric_limits<int>::max()};
  gLinePlace const place = ce->place();
  gDocUnit * unit = units->find(name.get(), ce->loc.file().name_sep(),
                                before ? gLinePlace{1} : place, before ? place : last, rank);
  return unit ? take(*unit, ce, rank) : Outcome();
}

gAssociation::Outcome gAssociation::take_far(cRef<gCodeElem> const & ce, Name & name, bool folders,
                                             int rank) {
  if (gUnitNames.empty())
    return {};
  auto const * list = gUnitNames.lookup(name.get());
  if (!list)
    return {};
  std::unique_ptr<gFarNamesakes> & units = far_units_[list->get()];
  if (!units)
    units = std::make_unique<gFarNamesakes>(**list);
  gDocUnit * unit = units->find(ce->loc.file(), folders, rank);
  return unit ? take(*unit, ce, rank) : Outcome();
}

gAssociation::Outcome gAssociation::try_method(int method, cRef<gCodeElem> const & ce, Name & name,
                                               int rank) {
  switch (method) {
  case comment_before:
  case comment_after:
    return take_near(gComments, ce, method == comment_before, true, rank);
  case unnamed_before:
  case unnamed_after:
    return take_near(gUnnamedUnits, ce, method == unnamed_before, false, rank);
  case named_before:
  case named_after:
    return take_named(ce, name, method == named_before, rank);
  case other_file:
  case other_folder:
    return take_far(ce, name, method == other_folder, rank);
  }
  return {};
}

gAssociation::Outcome gAssociation::search(cRef<gCodeElem> const & ce) {
  Name name{*ce, {}};
  for (std::size_t i = 0; i < options_.order.size(); ++i) {
    if (options_.prio[i] <= 0)
      continue;
    Outcome outcome = try_method(options_.order[i], ce, name, options_.prio[i]);
    if (outcome.bound)
      return outcome;
  }
  return {};
}

// What is static in a header belongs to everybody who includes it.
bool gAssociation::should_generate(gCodeElem const & ce) const {
  bool const variable = ce.type == ut_var;
  bool const shared = ce.kind != Decl::gKind::none && is_header(ce.loc.file());
  return (ce.type & options_.gen_unit) != 0 &&
         (options_.gen_private || ce.visibility != "private") &&
         (options_.gen_static || shared || !(variable || ce.type == ut_function) ||
          !(ce.flags & spec_static)) &&
         (options_.gen_extern || !variable || !(ce.flags & spec_extern));
}

// Taking a text is the last thing that a search does, so the chain of those that lose theirs is a
// loop. It ends, because each step raises the rank of a binding.
void gAssociation::associate(cRef<gCodeElem> const & first) {
  for (cRef<gCodeElem> ce = first; ce;) {
    correct_type(*ce);
    if (ce->text >= 0)
      return; // its reader knew
    Outcome outcome = search(ce);
    if (!outcome.bound && should_generate(*ce))
      generate_unit(ce);
    ce = outcome.displaced;
  }
}

void ana_associate() {
  Msg::log(Msg::associating);
  gAssociation association(gAllocOptions::read());
  gProgress progress(Msg::associating, gCodeElems.total());
  for (auto const & file : gCodeElems) {
    for (auto const & [place, ce] : *file.value) {
      Vapp::poll_break();
      association.associate(ce);
      progress.step();
    }
  }
}
