// When rules run, how pages are checked and stored, and who shows a dialog.

#include <gtest/gtest.h>

#include "app/options/options.h"
#include "app/options/project.h"
#include "app/shell/dialogs/make_dialog.h"
#include "support/test_dialogs.h"
#include "support/test_outside.h"

namespace {

// Notes each rule that runs; the fields refuse while `refused` names them.
class Page : public gPage {
public:
  Page(std::string title, std::string & log) : gPage(std::move(title), 0), log_(log) {
    add({.id = "path", .label = "Path"});
    add({.id = "choose", .kind = gField::Kind::button, .label = ">>", .chooser_of = "path"});
    add({.id = "other", .label = "Part & path"});
    add({.id = "digits", .kind = gField::Kind::number, .text = "4", .low = 1, .high = 16});
  }
  bool exchange(bool store) override {
    log_ += store ? " store" : " read";
    return store;
  }
  bool rule(gField & field) override {
    log_ += " " + field.id;
    if (nested)
      dialog()->left(*this, field, {});
    return field.id == refused ? refuse(field, "No.") : gPage::rule(field);
  }
  void pressed(gField &) override { touch(); }

  std::string refused;
  bool nested = false;

private:
  std::string & log_;
};

class Dialog : public gDialog {
public:
  Dialog() : gDialog("Two pages", Apply::yes) {
    first = &add_page<Page>("One", log);
    second = &add_page<Page>("Two", log);
  }
  std::string ran() { return std::exchange(log, ""); }

  std::string log;
  Page *first, *second;
};

class Protocol : public testing::Test {
protected:
  Protocol() { Vapp::project().load_defaults(); }
  TestOutside outside;
  TestHost host;
};

using Target = gDialog::Target;

TEST_F(Protocol, rules_run_when_the_focus_leaves_but_not_on_the_way_to_cancel) {
  Dialog dialog;
  DialogUser user(dialog);
  EXPECT_EQ(dialog.ran(), " read read");
  user.leave("path", "other");
  EXPECT_EQ(dialog.ran(), " path");
  user.leave("path", "choose");
  user.leave("other", "choose");
  EXPECT_EQ(dialog.ran(), " other") << "the button is that of the path";
  dialog.first->refused = "path";
  user.leave("path");
  EXPECT_EQ(user.focus(), "path");
  EXPECT_EQ(outside.shown.back(), "box: No.");
  dialog.first->nested = true;
  user.leave("path");
  EXPECT_EQ(dialog.ran(), " path path") << "not behind the box of that rule";
  dialog.first->nested = false;
  dialog.left(*dialog.first, user.at("path"), {Target::Kind::cancel});
  user.leave("other");
  EXPECT_EQ(dialog.ran(), "");
  user.type("other", "goes on");
  user.leave("other");
  EXPECT_EQ(dialog.ran(), " other");
  dialog.cancel();
  user.leave("other");
  dialog.ok();
  EXPECT_EQ(dialog.ran(), "");
  EXPECT_FALSE(dialog.accepted() || dialog.is_open());
}

TEST_F(Protocol, a_page_that_refuses_keeps_the_dialog_open_with_nothing_stored) {
  Dialog dialog;
  DialogUser user(dialog);
  dialog.second->refused = "other";
  dialog.ok();
  EXPECT_EQ(dialog.ran(), " read read path choose other digits path choose other");
  EXPECT_TRUE(dialog.is_open());
  EXPECT_EQ(dialog.page(), 1);
  EXPECT_EQ(user.focus(), "other");
  dialog.second->refused.clear();
  for (char const * const wrong : {"0", "17", "", "x", "4 ", "99999999999"}) {
    user.type("digits", wrong);
    dialog.apply();
    EXPECT_EQ(outside.shown.back(), "box: Please enter an integer between 1 and 16.") << wrong;
    EXPECT_EQ(user.focus(), "digits");
  }
  for (char const * const right : {"1", "16"}) {
    user.type("digits", right);
    EXPECT_TRUE(dialog.changed());
    dialog.ran();
    dialog.apply();
    EXPECT_TRUE(dialog.ran().ends_with(" store store")) << right;
    EXPECT_TRUE(dialog.is_open() && !dialog.changed());
  }
  user.press("choose");
  EXPECT_TRUE(dialog.changed());
  dialog.ok();
  EXPECT_TRUE(dialog.accepted() && !dialog.is_open());
}

TEST_F(Protocol, labels_get_letters_of_their_own) {
  Dialog dialog;
  DialogUser user(dialog);
  EXPECT_EQ(user.at("path").marked_label(), "&Path");
  EXPECT_EQ(user.at("other").marked_label(), "P&art && path");
  EXPECT_EQ(user.at("choose").marked_label(), ">>");
}

TEST_F(Protocol, dialogs_are_shown_by_their_names) {
  Vapp::project().set_project_name("/somewhere/first.book.vlp");
  outside.shown.clear();
  EXPECT_FALSE(Shell::run_dialog({"gNowhere"}));
  EXPECT_FALSE(Shell::run_dialog({"fDefineTitle"})) << "cancelled";
  auto const entitle = [&](std::string const & title) {
    host.scripts = {[&](gDialog & dialog, DialogUser & user) {
      user.type("title", title);
      dialog.ok();
    }};
    EXPECT_TRUE(Shell::run_dialog({"fDefineTitle", 3}));
  };
  entitle("first.book");
  entitle("");
  EXPECT_FALSE(Vapp::option("atc_title")) << "nothing was changed";
  entitle("Almanac");
  EXPECT_EQ(Vapp::project().title(), "Almanac");
  EXPECT_EQ(outside.shown, std::vector<std::string>{"title: Vellumar  [first.book.vlp *]"});
  entitle("");
  EXPECT_TRUE(Vapp::option("atc_title"));
  EXPECT_EQ(Vapp::project().title(), "first.book");
  bool gone = false;
  EXPECT_TRUE(Shell::run_dialog({"fDefineTitle", 0, true, [&] { gone = true; }}));
  EXPECT_FALSE(gone);
  host.modeless->cancel();
  EXPECT_TRUE(gone);
}

} // namespace
