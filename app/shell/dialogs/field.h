// What a dialog shows and takes, as values that a window draws and a test reads.
#pragma once

#include <string>
#include <vector>

// One control of a page. The page sets it up; the user's window writes `text`, `checked`,
// `selected` and `column` and tells the dialog; the rules of the page may change everything but
// `id`, `kind` and the place.
struct gField {
  enum class Kind {
    text,   // a line to type in
    number, // a line for a whole number between `low` and `high`
    shown,  // a line that can be read and copied only
    check,  // a box with its label behind it
    radio,  // one of `rows`, all of them shown
    combo,  // one of `rows`, the chosen one shown
    list,   // a table of `rows` with titled columns, of which one row can be selected
    button,
    note // a text without a control
  };
  enum class Place {
    below,  // of the field before it
    beside, // on the line of the field before it, such as a button behind its path
    column, // at the top of a new column, such as the buttons beside a list
    row     // at the left again, below all columns
  };
  using Row = std::vector<std::string>; // a cell for each column

  std::string id; // unique on its page
  Kind kind = Kind::text;
  std::string label = {}; // without a mark for the letter that picks it: see `mnemonic`
  Place place = Place::below;
  std::string frame = {}; // id of the frame around it; fields of one frame follow each other
  std::string text = {};  // the content of a line; of a note its text
  bool checked = false;
  std::vector<std::string> titles = {}; // of the columns of a list; none: a list without a head
  std::vector<Row> rows = {};
  int selected = -1;     // a row; -1 without one
  int column = 0;        // of a list: where the user was last
  int low = 0, high = 0; // limits of a number; none if both are 0
  bool enabled = true;
  bool stored = true;          // false for a combo that only picks what the other fields show
  std::string chooser_of = {}; // of a button: id of the field that it fills
  std::string tool_tip = {};   // tells what a button without a word on it does, too
  int mnemonic = -1;           // the position in `label` of the letter that picks the field

  // The label with "&" in front of the letter that picks the field, and "&&" for each "&" in it.
  std::string marked_label() const;
  // The cell of the selected row; empty without one.
  std::string cell(std::size_t column = 0) const;
};

// A box with a title around fields of a page.
struct gFrame {
  std::string id;
  std::string title;
};

// What a key means on a list.
enum class gListKey { insert, remove, edit };
