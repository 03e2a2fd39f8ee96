// Every dialog of the program in its window: opened, looked at, cancelled, changed and taken.

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
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

  static cRef<cObj> options() { return Vapp::options.clone(); }
  static cRef<cObj> settings() { return Vapp::options_ini.clone(); }

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

TEST_F(Dialogs, what_was_changed_is_taken_by_ok) {
  for (char const * name : {"fDefineTitle", "gDiaAnaopt", "gAnaPre", "gAnaAlloc", "gAnaSrcpat"}) {
    SCOPED_TRACE(name);
    cRef<cObj> const before = options();
    open(name);
    EXPECT_TRUE(change());
    Windows::click(*window, "OK");
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(Vapp::options.equal(*before));
    EXPECT_TRUE(Vapp::project().modified());
  }
}

} // namespace
