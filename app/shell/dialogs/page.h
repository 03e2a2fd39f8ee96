// A page of a dialog: fields and the rules that hold between them, without a window.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "app/shell/dialogs/field.h"

class gDialog;

// The dialog calls a page behind each event of the user, see gDialog. References to fields stay
// valid as long as the page. A page works on copies of its own, which it reads and writes in
// exchange().
class gPage {
public:
  // `context` is the number of the page in the help map.
  gPage(std::string title, int context) : title_(std::move(title)), context_(context) {}
  virtual ~gPage() = default;
  gPage(gPage const &) = delete;
  gPage & operator=(gPage const &) = delete;

  std::string const & title() const { return title_; }
  int context() const { return context_; }
  std::deque<gField> & fields() { return fields_; }
  std::vector<gFrame> const & frames() const { return frames_; }
  // The field must exist.
  gField & field(std::string_view id);
  // Null if there is none.
  gField * find(std::string_view id);

  // false: fills the fields from the options. true: writes what differs. Answers whether anything
  // was written; marking the project is the dialog's.
  virtual bool exchange(bool store) = 0;
  // Runs the rule of each field in their order, as OK does. False if one refuses, which then has
  // the focus. Rules of the page as a whole come behind.
  virtual bool check();
  // The rule of one field, run when the focus leaves it and at check(). False, after a box with
  // the reason, if the field keeps the focus. The base tests numbers against their limits.
  virtual bool rule(gField & field);

  // The user has changed a text, a check or a selection.
  virtual void changed(gField &) {}
  virtual void pressed(gField &) {}
  // A double click on a column of the selected row, or the return key on it.
  virtual void activated(gField &, int /*column*/) {}
  virtual void key(gField &, gListKey) {}

protected:
  gField & add(gField field);
  // A frame that fields name; a second call changes its title.
  void frame(std::string const & id, std::string const & title);
  // Asks for the focus.
  void focus(gField const & field);
  // A stop box and the focus for the field; answers false, the answer of a rule that refuses.
  bool refuse(gField const & field, std::string const & text);
  // Puts what a chooser gave into a field, as if it was typed; an empty path was cancelled.
  bool choose_into(gField & field, std::string const & path);
  // Tells that a working copy has changed by something else than a field, such as "Delete".
  void touch();
  // Null until the page is in a dialog.
  gDialog * dialog() const { return dialog_; }
  void set_title(std::string const & title) { title_ = title; }

private:
  friend class gDialog;
  std::string title_;
  int context_;
  std::deque<gField> fields_;
  std::vector<gFrame> frames_;
  gDialog * dialog_ = nullptr;
};
