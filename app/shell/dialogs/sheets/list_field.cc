// A list that is filled again, behind a deletion say, keeps the place where the user is.
#include "app/shell/dialogs/sheets/list_field.h"

#include <algorithm>

#include "vlb/outside.h"

cRef<cMapObj> Shell::working_copy(cRef<cObj> const & value) {
  auto copy = make_ref<cMapObj>();
  if (value && &value->type() == &cat::type_map())
    copy->assign(*value);
  return copy;
}

std::vector<gField::Row> Shell::key_rows(cRef<cObj> const & map) {
  std::vector<gField::Row> rows;
  for (cIterObj it = map ? map->begin() : cIterObj(nullptr); it.valid(); it++)
    rows.push_back({it.key_as_string()});
  return rows;
}

void Shell::fill(gField & list, std::vector<gField::Row> rows) {
  list.rows = std::move(rows);
  list.selected = std::min(std::max(list.selected, 0), static_cast<int>(list.rows.size()) - 1);
}

void Shell::select(gField & list, std::string const & name) {
  auto const found = std::find_if(list.rows.begin(), list.rows.end(), [&](gField::Row const & row) {
    return !row.empty() && row[0] == name;
  });
  list.selected = found == list.rows.end() ? -1 : static_cast<int>(found - list.rows.begin());
}

void Shell::select_or_first(gField & list, std::string const & name) {
  select(list, name);
  if (list.selected < 0 && !list.rows.empty())
    list.selected = 0;
}

bool Shell::confirmed(std::string const & question) {
  return Vlb::outside().ask_yes_no(question) == gOutside::Answer::yes;
}

bool Shell::may_delete(Vapp::gDeletion const & deletion) {
  if (deletion.allowed)
    return confirmed(deletion.text);
  Vlb::outside().box(deletion.text, gOutside::Icon::stop);
  return false;
}
