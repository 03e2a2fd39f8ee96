// Reads gNamedUnits and gUnnamedUnits. Fills nothing.
// Generated units aren't checked: they have no description that anyone could have written.

#include "ana/anadat/tables.h"
#include "ana/progress.h"
#include "ana/stages.h"
#include "app/options/run_flags.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

void check_table(gFileObjTable<cRef<gDocUnit>> const & table, gProgress & progress) {
  for (auto const & file : table) {
    for (auto const & [place, unit] : *file.value) {
      Vapp::poll_break();
      unit->check();
      progress.step();
    }
  }
}

} // namespace

void ana_check() {
  Msg::log(Msg::checking);
  gProgress progress(Msg::checking, gNamedUnits.total() + gUnnamedUnits.total());
  check_table(gNamedUnits, progress);
  check_table(gUnnamedUnits, progress);
}
