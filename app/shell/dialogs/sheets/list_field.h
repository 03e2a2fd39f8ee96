// Lists over private copies of maps of the options.
#pragma once

#include "app/options/attributes.h"
#include "app/shell/dialogs/field.h"
#include "store/cmapobj.h"

namespace Shell {

// A private copy of a map; an empty map for anything else.
cRef<cMapObj> working_copy(cRef<cObj> const & value);

// The keys of a map, as rows of one cell.
std::vector<gField::Row> key_rows(cRef<cObj> const & map);
// Fills a list. The selection stays at its place, or goes to the last row where there are fewer; a
// list with rows has one.
void fill(gField & list, std::vector<gField::Row> rows);
// Selects the row with that text in its first cell; none if there is no such row.
void select(gField & list, std::string const & name);
// The same, but the first row if there is no such row.
void select_or_first(gField & list, std::string const & name);

// Asks the user, with "no" for anything but a plain yes.
bool confirmed(std::string const & question);
// The same for a deletion, or a box that tells why it can't be.
bool may_delete(Vapp::gDeletion const & deletion);

} // namespace Shell
