// Reads gComments and gGeneratedUnits. Changes gNamedUnits, fills gUnnamedUnits and gUnitNames.
// What the association has bound becomes units: comments turn into units of their own, and every
// unit takes name, attributes and subentries from its code element.

#include "ana/anadat/tables.h"
#include "ana/comment_reader.h"
#include "ana/progress.h"
#include "ana/stages.h"
#include "app/options/run_flags.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

// Counts an item and gives the user a chance to stop.
struct Pace {
  gProgress progress;
  void step() {
    progress.step();
    Vapp::poll_break();
  }
};

std::size_t generated_count() {
  std::size_t count = 0;
  for (auto const & name : gGeneratedUnits)
    count += name.value.size();
  return count;
}

std::size_t bound_comments() {
  std::size_t count = 0;
  for (auto const & file : gComments) {
    for (auto const & [place, comment] : *file.value)
      count += comment->code_elem() != nullptr;
  }
  return count;
}

// All items of the four passes: each bound comment is met a second time as a unit.
std::size_t total_items() {
  return gComments.total() + bound_comments() + gUnnamedUnits.total() + generated_count() +
         gNamedUnits.total();
}

cRef<gDocUnit> unit_of(gCmt const & comment, gCommentReader & reader) {
  cRef<gCodeElem> const & ce = comment.code_elem();
  auto unit = make_ref<gSyntUnit>(ce->names, ce->loc.file().name_sep(), comment.file(),
                                  comment.first_line());
  unit->bind(ce, comment.rank());
  gString text;
  if (reader.read(comment, text)) {
    text.wsp_norm();
    unit->set_subentry("@description", gStrList(Vlb::escape_atc(text)));
  } else {
    Msg::log(Msg::comment_unreadable, "", comment.loc());
  }
  return unit;
}

void comments_to_units(Pace & pace) {
  gCommentReader reader;
  for (auto const & file : gComments) {
    std::vector<gLineObjMap<cRef<gDocUnit>>::Entry> units;
    for (auto const & [place, comment] : *file.value) {
      pace.step();
      if (comment->code_elem())
        units.push_back({place, unit_of(*comment, reader)});
    }
    if (!units.empty())
      gUnnamedUnits.insert_all(file.value->begin()->object->file(), units);
  }
}

void enter_name(cRef<gDocUnit> const & unit) {
  gString const name = unit->name();
  if (!name.empty())
    gUnitNames.add(name, unit);
}

void update_unnamed(Pace & pace) {
  for (auto const & file : gUnnamedUnits) {
    for (auto const & [place, unit] : *file.value) {
      pace.step();
      unit->update_from_code();
      enter_name(unit);
    }
  }
}

void enter_generated(Pace & pace) {
  for (auto const & name : gGeneratedUnits) {
    for (cRef<gDocUnit> const & unit : name.value) {
      pace.step();
      enter_name(unit);
    }
  }
}

void update_named(Pace & pace) {
  for (auto const & file : gNamedUnits) {
    for (auto const & [place, unit] : *file.value) {
      pace.step();
      unit->update_from_code();
    }
  }
}

} // namespace

void ana_update_units() {
  Msg::log(Msg::updating);
  Pace pace{{Msg::updating, total_items()}};
  comments_to_units(pace);
  update_unnamed(pace);
  enter_generated(pace);
  update_named(pace);
}
