// Facts become objects of the run: they get their numbers, shared words and places in the tables.
#include "ana/read/enter.h"

#include <limits>

#include "ana/anadat/tables.h"

namespace {

// Readers that know lines alone keep one object a line.
template <class T>
void put(gFileObjTable<cRef<T>> & table, gSrcFile const & file, gLinePlace place, cRef<T> object) {
  auto & map = table.own_map(file);
  if (place.column == 0)
    map.set(place, std::move(object));
  else
    map.add(place, std::move(object));
}

// The first numbers of a file's units.
struct Numbers {
  explicit Numbers(gTextFacts const & facts)
      : unit(gCounters.units),
        label(gCounters.labels.take(facts.labels_made)) {
    gCounters.units += static_cast<std::uint32_t>(facts.units_made);
  }
  gUnitNumbers of(gUnitFacts const & facts) const {
    return {unit + static_cast<std::uint32_t>(facts.number), label + facts.label};
  }

  std::uint32_t unit;
  int label;
};

cRef<gDocUnit> empty_unit(gUnitFacts const & facts, gSrcFile const & file, gUnitNumbers numbers) {
  int const line = facts.place.line;
  if (facts.is_text)
    return make_ref<gTextUnit>(*facts.names.front(), file, line, numbers);
  auto unit = make_ref<gSyntUnit>(facts.names, facts.name_sep, file, line, numbers);
  if (!facts.headline.empty())
    unit->set_headline(facts.headline);
  unit->set_hierarchy(facts.hier_up, facts.hier_down);
  return unit;
}

// Takes the texts out of the facts.
cRef<gDocUnit> make_unit(gUnitFacts & facts, gSrcFile const & file, gUnitNumbers numbers) {
  cRef<gDocUnit> unit = empty_unit(facts, file, numbers);
  for (gUnitFacts::Attribute const & one : facts.attributes)
    unit->set_attr(one.name, one.value);
  for (gUnitFacts::Subentry & one : facts.subentries)
    unit->add_subentry(one.name, std::move(one.text));
  if (!facts.link_line.empty())
    unit->link_line() = std::move(facts.link_line);
  if (!facts.style.empty())
    unit->set_style(facts.style);
  for (gDocUnit::Flag const flag : {gDocUnit::bookmark, gDocUnit::index_entry})
    if (!(facts.flags & flag))
      unit->clear_flag(flag);
  return unit;
}

// A binding of the reader's is final: no search may take the unit away.
void bind_elements(gFileFacts const & facts, std::vector<cRef<gDocUnit>> const & units) {
  for (cRef<gCodeElem> const & element : facts.code.elements)
    if (element->text >= 0)
      units.at(static_cast<std::size_t>(element->text))
          ->bind(element, std::numeric_limits<int>::max());
}

} // namespace

gTakenNames names_taken(gTextFacts const & facts) {
  gTakenNames taken;
  for (gString const & name : facts.bookmarks)
    if (gBookmarks.contains(name))
      taken.bookmarks.push_back(name);
  for (gCitationFacts const & citation : facts.citations)
    if (gCitations.contains(citation.name))
      taken.citations.push_back(citation.name);
  return taken;
}

void enter_text(gFileFacts & facts) {
  gTextFacts & text = facts.text;
  Numbers const numbers(text);
  std::vector<cRef<gDocUnit>> units;
  units.reserve(text.units.size());
  for (gUnitFacts & one : text.units) {
    cRef<gDocUnit> unit = make_unit(one, facts.file, numbers.of(one));
    if (one.is_named)
      gUnitNames.add(unit->name(), unit);
    put(one.is_named ? gNamedUnits : gUnnamedUnits, facts.file, one.place, unit);
    units.push_back(std::move(unit));
  }
  bind_elements(facts, units);
  for (gString const & name : text.bookmarks)
    gBookmarks.insert(name, 0);
  for (gCitationFacts const & one : text.citations)
    gCitations.insert(one.name, make_ref<gCitation>(facts.file, one.first_line, one.last_line));
  text.units = {};
  text.bookmarks = {};
  text.citations = {};
}

void enter_code(gFileFacts & facts) {
  gCodeFacts & code = facts.code;
  bool const is_pascal = facts.file.language() == gLanguage::pascal;
  gClassTable & classes = is_pascal ? gPasClasses : gCppClasses;
  for (gClassFacts const & one : code.classes)
    classes.insert_class(one.name, one.bases);
  for (cRef<gCodeElem> & element : code.elements) {
    gLinePlace const place = element->place();
    put(gCodeElems, facts.file, place, std::move(element));
  }
  for (gCommentFacts const & one : code.comments)
    if (one.left_out == gLeftOut::taken)
      put(gComments, facts.file, one.place,
          make_ref<gCmt>(facts.file, one.place.line, one.last_line));
  code.elements = {};
  code.classes = {};
  code.comments = {};
}
