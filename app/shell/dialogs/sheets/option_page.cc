// A combo writes only a choice that the user made: a value between two of its rows, such as the
// severity of hints, stays as long as nobody touches it.
#include "app/shell/dialogs/sheets/option_page.h"

#include <algorithm>
#include <charconv>

#include "app/options/option_limits.h"
#include "app/options/options.h"
#include "app/shell/dialogs/put.h"

using namespace Vapp;

namespace {

bool is_number(gOptionRow const & row) {
  return row.type == gOptionType::number;
}

// The labels, each once: several values may mean the same.
std::vector<gField::Row> labels_of(gOptionRow const & row) {
  std::vector<gField::Row> labels;
  for (gChoice const & choice : row.choices) {
    gField::Row const label = {std::string(choice.label)};
    if (std::find(labels.begin(), labels.end(), label) == labels.end())
      labels.push_back(label);
  }
  return labels;
}

int number_of(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

// The choice of a value: for a number that is none the one below it.
gChoice const * choice_of(gOptionRow const & row, cMapObj const & tree) {
  gChoice const * found = nullptr;
  for (gChoice const & choice : row.choices) {
    bool const fits = is_number(row) ? number_of(choice.value) <= number_in(tree, row)
                                     : choice.value == text_in(tree, row);
    if (fits)
      found = &choice;
  }
  return found;
}

int row_of_label(gField const & field, std::string_view label) {
  auto const found =
      std::find(field.rows.begin(), field.rows.end(), gField::Row{std::string(label)});
  return found == field.rows.end() ? -1 : static_cast<int>(found - field.rows.begin());
}

// The last value with the chosen label: an empty one, which stands for the same, comes first.
cRef<cObj> chosen(gOptionRow const & row, gField const & field) {
  cRef<cObj> value;
  for (gChoice const & choice : row.choices)
    if (choice.label == field.cell())
      value = is_number(row) ? cat::make(number_of(choice.value)) : cat::make(choice.value);
  return value;
}

gField::Kind kind_of(gOptionRow const & row) {
  if (row.type == gOptionType::flag)
    return gField::Kind::check;
  if (!row.choices.empty())
    return gField::Kind::combo;
  return is_number(row) ? gField::Kind::number : gField::Kind::text;
}

// The help of a row without the manual's mark-up and its links to other pages.
std::string tool_tip_of(gOptionRow const & row) {
  std::string tip(row.help);
  for (std::size_t link; (link = tip.find(", see [")) != tip.npos;)
    tip.erase(link, tip.find(')', link) + 1 - link);
  std::erase(tip, '`');
  if (!tip.empty())
    tip[0] = Vlb::upper(tip[0]);
  return tip;
}

} // namespace

cMapObj & gOptionPage::tree_of(gOptionRow const & row) {
  return row.tree == gOptionTree::settings ? options_ini : options;
}

gField & gOptionPage::field_of(gOptionRow const & row, std::string const & frame) {
  gField & field = add({.id = std::string(row.path), .kind = kind_of(row)});
  field.label = row.label;
  field.tool_tip = tool_tip_of(row);
  field.frame = frame;
  field.rows = labels_of(row);
  if (field.kind == gField::Kind::number) {
    field.low = row.limits.low;
    field.high = row.limits.high;
  }
  bindings_.push_back({row, field});
  return field;
}

gField & gOptionPage::either(gFlagName name, char const * label_off, std::string const & frame) {
  gField & field = field_of(name.row(), frame);
  field.kind = gField::Kind::radio;
  field.rows = {{field.label}, {label_off}};
  field.label.clear();
  return field;
}

gField & gOptionPage::button(std::string const & id, std::string const & label, gField::Place place,
                             std::string const & frame) {
  gField & field = add({.id = id, .kind = gField::Kind::button});
  field.label = label;
  field.place = place;
  field.frame = frame;
  return field;
}

void gOptionPage::show(Binding & binding) {
  gOptionRow const & row = binding.row;
  gField & field = binding.field;
  cMapObj const & tree = tree_of(row);
  switch (field.kind) {
  case gField::Kind::check:
    field.checked = flag_in(tree, row);
    break;
  case gField::Kind::radio:
    field.selected = flag_in(tree, row) ? 0 : 1;
    break;
  case gField::Kind::combo: {
    gChoice const * const choice = choice_of(row, tree);
    field.selected = binding.shown = choice ? row_of_label(field, choice->label) : -1;
    break;
  }
  case gField::Kind::number:
    field.text = std::to_string(number_in(tree, row));
    break;
  default:
    field.text = text_in(tree, row);
  }
}

// Null where nothing is to be written.
cRef<cObj> gOptionPage::entered(Binding const & binding) {
  gField const & field = binding.field;
  switch (field.kind) {
  case gField::Kind::check:
    return cat::make(field.checked);
  case gField::Kind::radio:
    return cat::make(field.selected == 0);
  case gField::Kind::combo: {
    cRef<cObj> const now = entry_of(tree_of(binding.row), binding.row);
    bool const wrong_type = now && &now->type() != &default_of(binding.row)->type();
    return field.selected == binding.shown && !wrong_type ? nullptr : chosen(binding.row, field);
  }
  case gField::Kind::number:
    return cat::make(number_of(field.text));
  default:
    return cat::make(field.text);
  }
}

bool gOptionPage::store(gOptionRow const & row, cRef<cObj> const & value) {
  cMapObj & tree = tree_of(row);
  // What is absent until a user sets it isn't set by looking at it.
  bool const unset = row.origin == gOptionOrigin::user && !entry_of(tree, row);
  if (unset && value->equal(*default_of(row)))
    return false;
  return Shell::put(holder_of(tree, row), key_of(row), value);
}

bool gOptionPage::store(Binding const & binding) {
  cRef<cObj> const value = entered(binding);
  return value && store(binding.row, value);
}

bool gOptionPage::exchange(bool store_them) {
  bool written = false;
  for (Binding & binding : bindings_) {
    if (store_them)
      written |= store(binding);
    show(binding);
  }
  return written;
}

bool gOptionPage::rule(gField & field) {
  gOptionRow const * const row = gTextName::find(field.id);
  if (!row || row->rule == gTextRule::any || field.kind != gField::Kind::text)
    return gPage::rule(field);
  gCheck const refusal = check_limits(*row, *cat::make(field.text));
  field.text = cleaned(row->rule, field.text);
  if (refusal && row->rule == gTextRule::report_numbers)
    return refuse(field, "Please enter numbers of messages, separated by commas.");
  return refusal ? refuse(field, refusal->message) : true;
}
