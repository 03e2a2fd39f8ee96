// The fields of one pattern are shown at a time, and go to its record with each change, so that
// nothing is left to store when another one is chosen.
#include "app/shell/dialogs/sheets/pattern_properties_page.h"

#include <algorithm>
#include <charconv>

#include "app/options/attributes.h"
#include "app/shell/dialogs/context.h"
#include "app/shell/dialogs/sheets/list_field.h"
#include "vlb/outside.h"

using namespace Vapp;

namespace {

// A record that lacks a key says the same as one with an empty value, so it stays as it is.
template <class T> void keep(cObj & record, char const * key, T const & value) {
  T now{};
  cat::read(record.at(key), now);
  if (now != value)
    record[key] = cat::make(value);
}

} // namespace

gSpPage2::gSpPage2(gPatternCopy & copy)
    : gPage("Properties", gContext::pattern_properties),
      copy_(copy),
      pattern_(add({.id = "pattern", .kind = gField::Kind::combo})),
      identifier_(add({.id = "idspec", .kind = gField::Kind::radio})),
      exists_(add({.id = "exists", .kind = gField::Kind::check})),
      length_(add({.id = "slspec", .kind = gField::Kind::text})),
      separator_(add({.id = "slsep", .kind = gField::Kind::text})),
      assigned_(add({.id = "assigned", .kind = gField::Kind::list})),
      assign_(add({.id = "assign", .kind = gField::Kind::button})),
      unassign_(add({.id = "unassign", .kind = gField::Kind::button})),
      attributes_(add({.id = "attributes", .kind = gField::Kind::list})),
      values_(add({.id = "values", .kind = gField::Kind::list})) {
  pattern_.stored = false;
  pattern_.label = "Source pattern";
  frame("identifier", "Identifier");
  identifier_.frame = "identifier";
  identifier_.rows = {{"none"}, {"unqualified"}, {"complex"}};
  frame("subject", "Subject line");
  exists_.label = "exists";
  length_.label = "maximum length (lines)";
  separator_.label = "Separator";
  for (gField * field : {&exists_, &length_, &separator_})
    field->frame = "subject";
  frame("attributes", "Assigned attributes");
  for (gField * field : {&assigned_, &assign_, &unassign_, &attributes_, &values_})
    field->frame = "attributes";
  assigned_.titles = {"Attribute", "Value"};
  assign_.label = "<--";
  assign_.tool_tip = "Assign the value to the source pattern";
  assign_.place = attributes_.place = gField::Place::column;
  unassign_.label = "-->";
  unassign_.tool_tip = "Take the attribute from the source pattern";
  attributes_.titles = {"Attributes"};
  values_.titles = {"Values"};
  values_.place = gField::Place::beside;
}

// Null without a pattern.
cRef<cObj> gSpPage2::record() const {
  cRef<cObj> const record = copy_.patterns().at(pattern_.cell());
  return record && record->map() ? record : nullptr;
}

bool gSpPage2::exchange(bool store) {
  if (!store) {
    read_attributes();
    show();
  }
  return false;
}

void gSpPage2::read_attributes() {
  if (copy_.read_attributes()) {
    Vlb::outside().box(dropped_attributes, gOutside::Icon::exclamation);
    touch();
  }
  show_attributes();
}

void gSpPage2::show() {
  std::string const before = pattern_.cell();
  pattern_.rows = Shell::key_rows(cRef<cObj>::share(&copy_.patterns()));
  Shell::select_or_first(pattern_, before);
  cRef<cObj> const record = this->record();
  int idspec = 0, slspec = 0;
  std::string slsep;
  cat::read(record / "idspec", idspec);
  cat::read(record / "slspec", slspec);
  cat::read(record / "slsep", slsep);
  identifier_.selected = record ? std::clamp(idspec, 0, 2) : -1;
  exists_.checked = slspec > 0;
  length_.text = slspec > 0 ? std::to_string(slspec) : "";
  separator_.text = slsep;
  for (gField * field : {&identifier_, &exists_, &separator_})
    field->enabled = record != nullptr;
  length_.enabled = exists_.checked;
  show_attributes();
}

void gSpPage2::show_attributes() {
  std::vector<gField::Row> assigned;
  cRef<cObj> const used = record() / "attr";
  for (cIterObj it = used ? used->begin() : cIterObj(nullptr); it.valid(); it++)
    assigned.push_back({it.key_as_string(), cat::as_string(it.valref())});
  Shell::fill(assigned_, std::move(assigned));
  cRef<cObj> const all = copy_.tree().at("attr");
  Shell::fill(attributes_, Shell::key_rows(all));
  Shell::fill(values_, Shell::key_rows(all / attributes_.cell() / "val"));
  assign_.enabled = record() && values_.selected >= 0;
  unassign_.enabled = assigned_.selected >= 0;
}

// What can't be read counts as too short.
int gSpPage2::length() const {
  int number = 0;
  std::from_chars(length_.text.data(), length_.text.data() + length_.text.size(), number);
  return exists_.checked ? std::max(number, 1) : 0;
}

void gSpPage2::store_fields() {
  cRef<cObj> const record = this->record();
  if (!record)
    return;
  keep(*record, "idspec", std::max(identifier_.selected, 0));
  keep(*record, "slspec", length());
  keep(*record, "slsep", separator_.text);
}

void gSpPage2::changed(gField & field) {
  if (&field == &pattern_)
    show();
  else if (&field == &separator_)
    check_separator();
  else if (&field == &exists_) {
    length_.enabled = exists_.checked;
    rule(length_);
  }
  if (field.kind == gField::Kind::list)
    show_attributes();
  else
    store_fields();
}

// The last separator that passed stays, or the same box would come with every further key.
void gSpPage2::check_separator() {
  std::string text = separator_.text;
  cat::wsp_normalize(text);
  if (gCheck const refusal = check_subject_separator(text)) {
    separator_.text = cat::as_string(record() / "slsep");
    refuse(separator_, refusal->message);
  }
}

bool gSpPage2::rule(gField & field) {
  if (&field == &length_)
    length_.text = length() > 0 ? std::to_string(length()) : "";
  else if (&field == &separator_)
    cat::wsp_normalize(separator_.text);
  store_fields();
  return gPage::rule(field);
}

bool gSpPage2::check() {
  if (!gPage::check())
    return false;
  std::vector<gField::Row> const names = pattern_.rows;
  return std::all_of(names.begin(), names.end(),
                     [this](gField::Row const & name) { return check_pattern(name[0]); });
}

// A pattern that is refused is the one that is shown then.
bool gSpPage2::check_pattern(std::string const & name) {
  cRef<cObj> const record = copy_.patterns().at(name);
  int idspec = 0, slspec = 0;
  std::string slsep;
  cat::read(record / "idspec", idspec);
  cat::read(record / "slspec", slspec);
  cat::read(record / "slsep", slsep);
  gCheck refusal = check_subject_separator(slsep);
  if (!refusal)
    refusal = check_subject_line(idspec, slspec, slsep);
  if (!refusal)
    return true;
  Shell::select(pattern_, name);
  show();
  return refuse(separator_, refusal->message);
}

void gSpPage2::pressed(gField & button) {
  if (&button == &assign_)
    assign();
  else if (&button == &unassign_)
    unassign();
}

void gSpPage2::activated(gField & list, int) {
  if (&list == &values_)
    assign();
  else if (&list == &assigned_)
    unassign();
}

void gSpPage2::assign() {
  cRef<cObj> const record = this->record();
  if (!record || values_.cell().empty())
    return;
  (*record)["attr"][attributes_.cell()] = cat::make(values_.cell());
  touch();
  show_attributes();
}

void gSpPage2::unassign() {
  cRef<cObj> const used = record() / "attr";
  if (!used || !used->erase(assigned_.cell()))
    return;
  touch();
  show_attributes();
}
