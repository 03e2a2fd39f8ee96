// What all pages share: fields by their ids, and the limits of numbers.

#include "app/shell/dialogs/page.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

#include "app/shell/dialogs/dialog.h"
#include "vlb/outside.h"

gField * gPage::find(std::string_view id) {
  auto const found = std::find_if(fields_.begin(), fields_.end(),
                                  [&](gField const & field) { return field.id == id; });
  return found == fields_.end() ? nullptr : &*found;
}

gField & gPage::field(std::string_view id) {
  gField * const found = find(id);
  if (!found)
    throw std::logic_error("no field " + std::string(id) + " on page " + title_);
  return *found;
}

gField & gPage::add(gField field) {
  return fields_.emplace_back(std::move(field));
}

void gPage::frame(std::string const & id, std::string const & title) {
  auto const found = std::find_if(frames_.begin(), frames_.end(),
                                  [&](gFrame const & frame) { return frame.id == id; });
  if (found == frames_.end())
    frames_.push_back({id, title});
  else
    found->title = title;
}

void gPage::focus(gField const & field) {
  if (dialog_)
    dialog_->focus(*this, field.id);
}

bool gPage::choose_into(gField & field, std::string const & path) {
  focus(field);
  if (path.empty() || path == field.text)
    return false;
  field.text = path;
  touch();
  changed(field);
  return true;
}

void gPage::touch() {
  if (dialog_)
    dialog_->changed_ = true;
}

bool gPage::refuse(gField const & field, std::string const & text) {
  focus(field);
  Vlb::outside().box(text, gOutside::Icon::stop);
  return false;
}

bool gPage::check() {
  return std::all_of(fields_.begin(), fields_.end(),
                     [this](gField & field) { return rule(field); });
}

bool gPage::rule(gField & field) {
  if (field.kind != gField::Kind::number || !field.enabled || (field.low == 0 && field.high == 0))
    return true;
  int number = 0;
  char const * const end = field.text.data() + field.text.size();
  auto const read = std::from_chars(field.text.data(), end, number);
  if (read.ec == std::errc() && read.ptr == end && number >= field.low && number <= field.high)
    return true;
  return refuse(field, "Please enter an integer between " + std::to_string(field.low) + " and " +
                           std::to_string(field.high) + ".");
}
