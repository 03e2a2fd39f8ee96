// Every dialog of the program in its window: opened, looked at, cancelled, changed and taken.

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <gtest/gtest.h>

#include "app/options/options.h"
#include "app/options/project.h"
#include "app/options/settings.h"
#include "app/qt/dialog_window.h"
#include "app/qt/main_window.h"
#include "app/qt/window_user.h"
#include "app/shell/dialogs/make_dialog.h"
#include "store/gglobalobj.h"
#include "support/temp_folder.h"

namespace {

char const * const option_dialogs[] = {
    "fDefineTitle", "gDefineOutdir", "gDefineSrc",     "gAnaPre",     "gDiaAnaopt", "gAnaAlloc",
    "gAnaSrcpat",   "gDefineAttr",   "gDiaMsgoptions", "gOutOptions", "gDiaHM",     "gDiaExtraOpt"};
char const * const others[] = {"gDefineNewvlp", "gAboutDialog"};

class Dialogs : public testing::Test {
protected:
  Dialogs() {
    static bool const ready = (Global::objects().init_all(), true);
    EXPECT_TRUE(ready);
    Vapp::set_program_dir(gPathstring(VELLUMAR_SOURCE_DIR));
    Vapp::options_ini["warn_outdir"] = cat::make(false);
    Vapp::project().load_defaults();
    folder.write("src/a.h", "void f();\n");
    auto group = make_ref<cMapObj>();
    group->set("path", cat::make("src"));
    group->set("files", cat::make("*.h"));
    group->set("count", cat::make(1));
    Vapp::options.submap("inputfiles").set("1", group);
    Vapp::options["inputcurdir"] = cat::make(folder.path());
    Vapp::project().set_project_name(gPathstring(folder.path("p.vlp")));
  }
  ~Dialogs() override { Vapp::project().load_defaults(); }

  void open(std::string const & name) {
    window.reset();
    dialog = Shell::make_dialog(name);
    ASSERT_TRUE(dialog) << name;
    window = std::make_unique<gDialogWindow>(*dialog, nullptr);
    window->show();
    QApplication::setActiveWindow(window.get());
    Windows::settle();
  }
  void key(Qt::Key key) {
    QWidget * const focus = QApplication::focusWidget();
    QTest::keyClick(focus ? focus : window.get(), key);
    Windows::settle();
  }
  void look(std::string const & name) {
    auto * tabs = window->findChild<QTabWidget *>();
    for (int page = 0; page < static_cast<int>(dialog->pages().size()); ++page) {
      if (tabs)
        tabs->setCurrentIndex(page);
      Windows::settle();
      EXPECT_EQ(Windows::nameless(*window), std::vector<std::string>{}) << name << page;
      Windows::picture(*window, name + (tabs ? std::to_string(page) : ""));
    }
    if (tabs)
      tabs->setCurrentIndex(0);
  }
  // Works on the first thing that can be changed, on whatever page; false if there is none.
  bool change() {
    auto * tabs = window->findChild<QTabWidget *>();
    for (int page = 0; page < (tabs ? tabs->count() : 1); ++page) {
      if (tabs)
        tabs->setCurrentIndex(page);
      for (auto * box : window->findChildren<QCheckBox *>())
        if (box->isVisible() && box->isEnabled() && (QTest::mouseClick(box, Qt::LeftButton), true))
          return true;
      for (auto * line : window->findChildren<QLineEdit *>())
        if (line->isVisible() && line->isEnabled() && !line->isReadOnly()) {
          line->setFocus();
          QTest::keyClick(line, Qt::Key_Home);
          QTest::keyClicks(line, "~");
          return true;
        }
    }
    return false;
  }

  // The same, with what some dialogs want of it.
  void change(std::string const & name) {
    if (name == "gDiaMsgoptions") {
      Windows::type(*window, "msg/err_max", "7");
    } else if (name == "gDiaHM") {
      EXPECT_TRUE(change());
      Windows::type(*window, "name", "own");
    } else if (name == "gDefineAttr") {
      user.scripts.push_back([](QWidget & opened) {
        Windows::type(opened, "name", "COLOUR");
        Windows::click(opened, "OK");
      });
      QTest::mouseClick(&Windows::child(*window, "attribute_new"), Qt::LeftButton);
    } else {
      EXPECT_TRUE(change());
    }
    Windows::settle();
  }
  void tell_of_map_files(std::string const & name) {
    if (name == "gDiaHM")
      user.answer("OK");
  }
  bool apply_is_enabled() {
    for (auto * button : window->findChildren<QPushButton *>())
      if (button->text().remove('&') == "Apply")
        return button->isEnabled();
    return false;
  }

  static cRef<cObj> options() { return Vapp::options.clone(); }
  // The tree that the dialog writes to.
  static cRef<cObj> stored(std::string const & name) {
    return name == "gDiaExtraOpt" ? Vapp::options_ini.clone() : options();
  }

  TempFolder folder;
  gUserDesktop desktop;
  gMainWindow main_window{desktop, ""};
  std::unique_ptr<gDialog> dialog;
  std::unique_ptr<gDialogWindow> window;
  ModalUser user;
};

TEST_F(Dialogs, each_shows_itself_and_escape_changes_nothing) {
  for (char const * name : option_dialogs) {
    SCOPED_TRACE(name);
    cRef<cObj> const before = options();
    open(name);
    look(name);
    change();
    key(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(Vapp::options.equal(*before));
  }
  for (char const * name : others) {
    SCOPED_TRACE(name);
    open(name);
    look(name);
    key(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
  }
}

TEST_F(Dialogs, each_is_reached_by_the_tab_key_in_every_control) {
  for (char const * name : option_dialogs) {
    SCOPED_TRACE(name);
    open(name);
    auto * tabs = window->findChild<QTabWidget *>();
    std::set<QWidget *> reached;
    for (int i = 0; i < 60; ++i) {
      reached.insert(QApplication::focusWidget());
      key(Qt::Key_Tab);
    }
    for (gField const & field : dialog->pages()[0]->fields()) {
      bool const control = field.kind != gField::Kind::note && field.kind != gField::Kind::radio;
      if (!control || !field.enabled)
        continue;
      QWidget & widget = Windows::child(tabs ? *tabs->currentWidget() : *window, field.id.c_str());
      EXPECT_TRUE(reached.count(&widget) || widget.focusPolicy() == Qt::NoFocus) << field.id;
    }
    key(Qt::Key_Escape);
  }
}

// By clicks on the buttons: what was changed is thrown away, or stored and kept open, or stored.
TEST_F(Dialogs, what_was_changed_is_taken_by_ok_and_apply_and_not_by_cancel) {
  for (char const * name : option_dialogs) {
    SCOPED_TRACE(name);
    cRef<cObj> const before = stored(name);
    open(name);
    change(name);
    Windows::click(*window, "Cancel");
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(stored(name)->equal(*before));
    if (dialog->has_apply()) {
      open(name);
      EXPECT_FALSE(apply_is_enabled());
      change(name);
      EXPECT_TRUE(apply_is_enabled());
      tell_of_map_files(name);
      Windows::click(*window, "Apply");
      EXPECT_FALSE(apply_is_enabled());
      EXPECT_TRUE(window->isVisible());
      EXPECT_FALSE(stored(name)->equal(*before));
      key(Qt::Key_Escape);
      Vapp::options = static_cast<cMapObj const &>(*before->clone());
      Vapp::project().save();
    }
    open(name);
    change(name);
    tell_of_map_files(name);
    Windows::click(*window, "OK");
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(stored(name)->equal(*before));
    EXPECT_EQ(Vapp::project().modified(), std::string_view(name) != "gDiaExtraOpt");
    Vapp::project().save();
  }
}

TEST_F(Dialogs, those_that_others_open_show_themselves) {
  struct {
    char const * dialog;
    int page;
    char const *button, *title;
  } const rows[] = {{"gDefineSrc", 0, "new", "New File Group"},
                    {"gDefineSrc", 0, "edit", "Change File Group"},
                    {"gAnaPre", 2, "new", "New C/C++ Macro"},
                    {"gAnaSrcpat", 0, "pattern_new", "New Source Pattern"},
                    {"gAnaSrcpat", 0, "subentry_new", "New Subentry"},
                    {"gAnaSrcpat", 0, "pattern_keyword_edit", "Change Keyword for spt_class"},
                    {"gDefineAttr", 0, "attribute_new", "Define Attribute"},
                    {"gDefineAttr", 0, "value_new", "New Value for Attribute UNITTYPE"}};
  for (auto const & row : rows) {
    SCOPED_TRACE(row.title);
    open(row.dialog);
    if (auto * tabs = window->findChild<QTabWidget *>())
      tabs->setCurrentIndex(row.page);
    Windows::settle();
    user.scripts.push_back([&](QWidget & opened) {
      EXPECT_EQ(Windows::nameless(opened), std::vector<std::string>{});
      Windows::picture(opened, std::string(row.dialog) + "_" + row.button);
      QTest::keyClick(&opened, Qt::Key_Escape);
    });
    QTest::mouseClick(&Windows::child(*window, row.button), Qt::LeftButton);
    EXPECT_EQ(user.shown.back(), row.title);
    EXPECT_FALSE(dialog->changed());
    key(Qt::Key_Escape);
  }
}

} // namespace
