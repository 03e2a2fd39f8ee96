// The "&" of a label is the window system's way of telling the letter; here it is only a position.

#include "app/shell/dialogs/field.h"

std::string gField::marked_label() const {
  std::string marked;
  for (std::size_t i = 0; i < label.size(); ++i) {
    if (static_cast<int>(i) == mnemonic || label[i] == '&')
      marked += '&';
    marked += label[i];
  }
  return marked;
}

std::string gField::cell(std::size_t column) const {
  if (selected < 0 || selected >= static_cast<int>(rows.size()))
    return {};
  Row const & row = rows[static_cast<std::size_t>(selected)];
  return column < row.size() ? row[column] : std::string();
}
