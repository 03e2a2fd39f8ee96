// Plays the user of dialogs: what a window would tell them, and a host whose dialogs are driven by
// scripts.
#pragma once

#include <deque>
#include <stdexcept>

#include "app/shell/dialogs/host.h"

// Drives one dialog. A field is named by its id, on the page that is shown.
class DialogUser {
public:
  explicit DialogUser(gDialog & dialog) : dialog_(dialog) {
    if (!dialog.is_open())
      dialog.open();
  }
  gPage & page() { return *dialog_.pages().at(static_cast<std::size_t>(dialog_.page())); }
  gField & at(char const * id) { return page().field(id); }
  gField & usable(char const * id) {
    if (!at(id).enabled)
      throw std::logic_error(std::string(id) + " is disabled");
    return at(id);
  }

  void type(char const * id, std::string const & text) {
    usable(id).text = text;
    dialog_.changed(page(), at(id));
  }
  void check(char const * id, bool checked) {
    usable(id).checked = checked;
    dialog_.changed(page(), at(id));
  }
  void select(char const * id, int row) {
    usable(id).selected = row;
    dialog_.changed(page(), at(id));
  }
  void press(char const * id) { dialog_.pressed(page(), usable(id)); }
  void activate(char const * id, int column) { dialog_.activated(page(), usable(id), column); }
  void key(char const * id, gListKey key) { dialog_.key(page(), usable(id), key); }
  // The focus leaves a field for another one of the page, or for nothing of the dialog.
  void leave(char const * id, char const * to = nullptr) {
    gDialog::Target target;
    if (to)
      target = {gDialog::Target::Kind::field, to};
    dialog_.left(page(), at(id), target);
  }
  // All rows of a list: cells with "|" between them, "/" between the rows.
  std::string rows(char const * id) {
    std::string all;
    for (gField::Row const & row : at(id).rows) {
      all += all.empty() ? "" : "/";
      for (std::size_t i = 0; i < row.size(); ++i)
        all += (i > 0 ? "|" : "") + row[i];
    }
    return all;
  }
  // Where the dialog wants the focus; empty where it doesn't say.
  std::string focus() {
    std::optional<gDialog::Focus> const asked = dialog_.take_focus();
    return asked ? asked->field : "";
  }

private:
  gDialog & dialog_;
};

// Each dialog that is shown is driven by the next script, and cancelled where none is left.
// Modeless dialogs stay until they close themselves or the test ends.
class TestHost : public gDialogHost {
public:
  using Script = std::function<void(gDialog &, DialogUser &)>;
  TestHost() : before_(Shell::set_dialog_host(this)) {}
  ~TestHost() override { Shell::set_dialog_host(before_); }

  std::deque<Script> scripts;
  std::vector<std::string> titles; // of the dialogs that were shown
  std::unique_ptr<gDialog> modeless;

  bool show(gDialog & dialog) override {
    titles.push_back(dialog.title());
    DialogUser user(dialog);
    if (!scripts.empty()) {
      Script const script = scripts.front();
      scripts.pop_front();
      script(dialog, user);
    }
    if (dialog.is_open())
      dialog.cancel();
    return dialog.accepted();
  }

  void open(std::unique_ptr<gDialog> dialog, std::function<void()> closed) override {
    titles.push_back(dialog->title());
    modeless = std::move(dialog);
    modeless->open();
    modeless->on_update = [this, closed] {
      if (!modeless->is_open() && closed)
        closed();
    };
  }

private:
  gDialogHost * before_;
};
