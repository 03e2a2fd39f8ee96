// The window of a dialog tells it what the user does, in the words of the dialog: which field was
// left for what, and never what it did by itself.

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include "app/options/options.h"
#include "app/qt/dialog_window.h"
#include "app/qt/main_window.h"
#include "app/qt/window_user.h"

namespace {

using Kind = gField::Kind;
using Place = gField::Place;

// One of each kind of field; keeps what it is told.
class Page : public gPage {
public:
  explicit Page(std::vector<std::string> & told) : gPage("First", 901), told_(told) {
    add({.id = "path", .label = "Path"});
    add({.id = "choose",
         .kind = Kind::button,
         .label = ">>",
         .place = Place::beside,
         .chooser_of = "path",
         .tool_tip = "Choose a path"});
    add({.id = "shown", .kind = Kind::shown, .label = "Folder", .text = "/a"});
    add({.id = "width",
         .kind = Kind::number,
         .label = "Width of a tab",
         .text = "8",
         .low = 1,
         .high = 16});
    add({.id = "again", .kind = Kind::check, .label = "Do it again"});
    add({.id = "rank",
         .kind = Kind::combo,
         .label = "Rank",
         .rows = {{"low"}, {"high"}},
         .selected = 0});
    frame("way", "Way");
    add({.id = "way",
         .kind = Kind::radio,
         .frame = "way",
         .rows = {{"here"}, {"there"}},
         .selected = 1});
    add({.id = "groups",
         .kind = Kind::list,
         .label = "Groups",
         .titles = {"Directory paths", "Files"},
         .rows = {{"src", "*.h"}, {"lib", "*.c"}},
         .selected = 0});
    add({.id = "add", .kind = Kind::button, .label = "New", .place = Place::column});
    add({.id = "delete", .kind = Kind::button, .label = "Delete"});
    add({.id = "note", .kind = Kind::note, .text = "A group is a list of folders."});
  }

  bool exchange(bool store) override { return store; }
  bool rule(gField & field) override {
    if (field.id == "path" && field.text == "bad")
      return refuse(field, "No such path.");
    return gPage::rule(field);
  }
  void changed(gField & field) override { tell("changed", field); }
  void pressed(gField & field) override { tell("pressed", field); }
  void activated(gField & field, int column) override {
    tell("activated " + std::to_string(column), field);
  }
  void key(gField & field, gListKey key) override {
    tell("key " + std::to_string(static_cast<int>(key)), field);
  }

private:
  void tell(std::string const & what, gField const & field) {
    told_.push_back(what + " " + field.id);
  }
  std::vector<std::string> & told_;
};

class Second : public gPage {
public:
  Second() : gPage("Second", 902) { add({.id = "name", .label = "Name"}); }
  bool exchange(bool) override { return false; }
};

class Sample : public gDialog {
public:
  Sample() : gDialog("Sample", Apply::yes) {
    add_page<Page>(told);
    add_page<Second>();
  }
  std::vector<std::string> told;

protected:
  void stored(bool) override { told.emplace_back("stored"); }
};

class DialogWindow : public testing::Test {
protected:
  DialogWindow() { show(); }

  void show() {
    window.reset();
    window = std::make_unique<gDialogWindow>(sample, nullptr);
    window->show();
    QApplication::setActiveWindow(window.get());
    Windows::settle();
  }
  QWidget & at(char const * name) { return Windows::child(*window, name); }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    Windows::settle();
  }
  QPushButton & button(char const * label) {
    for (auto * one : window->findChildren<QPushButton *>())
      if (one->text().remove('&') == label)
        return *one;
    throw std::logic_error(label);
  }

  gUserDesktop desktop;
  gMainWindow main_window{desktop, ""};
  Sample sample;
  std::unique_ptr<gDialogWindow> window;
  ModalUser user;
};

TEST_F(DialogWindow, a_refusal_brings_the_focus_back_and_asks_once) {
  Windows::type(*window, "path", "bad");
  user.answer("OK");
  key(Qt::Key_Tab); // to the button of that very path
  EXPECT_TRUE(user.shown.empty());
  key(Qt::Key_Tab);
  at("width").setFocus();
  at("path").setFocus();
  Windows::settle();
  EXPECT_TRUE(user.shown.empty()) << "the button was left, and the path is in hand again";
  at("width").setFocus();
  Windows::settle();
  EXPECT_EQ(user.shown, std::vector<std::string>{"No such path."});
  EXPECT_EQ(Windows::focus(), "path");
  // A number out of its limits has the same right, and the two don't call each other.
  user.answer("OK");
  Windows::type(*window, "path", "good");
  Windows::type(*window, "width", "99");
  at("again").setFocus();
  Windows::settle();
  EXPECT_EQ(Windows::focus(), "width");
  EXPECT_EQ(user.shown.back(), "Please enter an integer between 1 and 16.");
}

TEST_F(DialogWindow, no_rule_holds_up_the_way_out) {
  Windows::type(*window, "path", "bad");
  button("Cancel").setFocus();
  Windows::settle();
  QTest::mouseClick(&button("Cancel"), Qt::LeftButton);
  EXPECT_FALSE(sample.is_open());
  EXPECT_FALSE(window->isVisible());
  show();
  Windows::type(*window, "path", "bad");
  key(Qt::Key_Escape);
  EXPECT_FALSE(sample.is_open());
  show();
  window->close();
  EXPECT_FALSE(sample.is_open());
  EXPECT_TRUE(user.shown.empty());
}

TEST_F(DialogWindow, ok_by_the_return_key_goes_to_the_page_that_refuses) {
  EXPECT_FALSE(button("Apply").isEnabled());
  Windows::type(*window, "path", "bad");
  EXPECT_TRUE(button("Apply").isEnabled());
  auto & tabs = *window->findChild<QTabWidget *>();
  user.answer("OK");
  user.answer("OK");
  tabs.setCurrentIndex(1);
  Windows::settle();
  EXPECT_EQ(tabs.currentIndex(), 0);
  at("path").setFocus();
  key(Qt::Key_Return);
  EXPECT_TRUE(sample.is_open());
  Windows::type(*window, "path", "good");
  QTest::mouseClick(&button("Apply"), Qt::LeftButton);
  EXPECT_TRUE(sample.is_open());
  EXPECT_FALSE(button("Apply").isEnabled());
  at("path").setFocus();
  key(Qt::Key_Return);
  EXPECT_TRUE(sample.accepted());
  EXPECT_EQ(std::count(sample.told.begin(), sample.told.end(), "stored"), 2);
}

TEST_F(DialogWindow, a_list_is_worked_by_keys_and_by_clicks) {
  auto & list = dynamic_cast<QTreeWidget &>(at("groups"));
  list.setFocus();
  key(Qt::Key_Down);
  EXPECT_EQ(sample.pages()[0]->field("groups").cell(), "lib");
  key(Qt::Key_Insert);
  key(Qt::Key_Delete);
  key(Qt::Key_F2);
  key(Qt::Key_Return);
  EXPECT_TRUE(sample.is_open()) << "the return key is the list's";
  QPoint const place = list.visualItemRect(list.topLevelItem(0)).center();
  QPoint const files(list.columnViewportPosition(1) + 5, place.y());
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, files);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, files);
  QTest::mouseClick(&button("Delete"), Qt::LeftButton);
  std::vector<std::string> const expected = {
      "changed groups",     "key 0 groups",   "key 1 groups",       "key 2 groups",
      "activated 0 groups", "changed groups", "activated 1 groups", "pressed delete"};
  EXPECT_EQ(sample.told, expected);
}

TEST_F(DialogWindow, shows_what_the_rules_changed_and_tells_only_what_the_user_did) {
  gPage & page = *sample.pages()[0];
  page.field("path").text = "/from/a/rule";
  page.field("again").checked = true;
  page.field("rank").selected = 1;
  page.field("groups").rows.push_back({"new", "*"});
  page.field("groups").selected = 2;
  page.field("add").enabled = false;
  sample.on_update();
  EXPECT_EQ(dynamic_cast<QLineEdit &>(at("path")).text(), "/from/a/rule");
  EXPECT_EQ(dynamic_cast<QTreeWidget &>(at("groups")).currentItem()->text(0), "new");
  EXPECT_FALSE(at("add").isEnabled());
  EXPECT_TRUE(sample.told.empty());
  // Letters pick fields, in the order of the page; arrows step a number within its limits.
  at("width").setFocus();
  for (int i = 0; i < 12; ++i)
    key(Qt::Key_Up);
  EXPECT_EQ(page.field("width").text, "16");
  key(Qt::Key_D, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&page] { return !page.field("again").checked; }));
}

TEST_F(DialogWindow, every_control_has_a_name_and_a_size_is_kept) {
  EXPECT_EQ(Windows::nameless(*window), std::vector<std::string>{});
  Windows::picture(*window, "sample");
  window->resize(window->width() + 77, window->height() + 33);
  QSize const size = window->size();
  key(Qt::Key_Escape);
  show();
  EXPECT_EQ(window->size(), size);
  Vapp::options_ini.submap("wnd_sizes").clear();
}

} // namespace
