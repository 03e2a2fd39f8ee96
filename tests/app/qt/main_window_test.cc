// The whole program off-screen, as a user meets it.

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QCommandLinkButton>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QListView>
#include <QMimeData>
#include <QScrollBar>
#include <QToolBar>
#include <QTreeView>
#include <gtest/gtest.h>
#include <thread>

#include "app/options/options.h"
#include "app/options/project.h"
#include "app/options/settings.h"
#include "app/qt/main_window.h"
#include "app/qt/window_user.h"
#include "app/shell/facts.h"
#include "app/shell/window/vapp.h"
#include "support/temp_folder.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

namespace fs = std::filesystem;

// Keeps what would be started.
class Desktop : public gDesktop {
public:
  std::vector<std::string> started;

  bool start(std::vector<std::string> const & command) override {
    started.push_back(command.empty() ? "" : command.back());
    return true;
  }
  bool has_program(std::string const &) override { return true; }
  std::string shell_command(std::string const &, std::string const &) override {
    return "browser \"%1\"";
  }
};

using Shell::idle;

class MainWindow : public testing::Test {
protected:
  MainWindow() {
    fs::copy(std::string(VELLUMAR_SOURCE_DIR) + "/ini", folder.path("ini"),
             fs::copy_options::recursive);
    Vapp::set_program_dir(gPathstring(folder.path()));
    folder.write("src/a.h", "/** @function\n * Does it. */\nvoid f();\n\n// Other.\nvoid g();\n");
    folder.write("d.vls", "@document\n@outfilter\n");
    window = std::make_unique<gMainWindow>(desktop, gVapp::help_map());
    EXPECT_TRUE(gVapp(window->frame(), *window).InitInstance(""));
    QApplication::setActiveWindow(window.get());
    Windows::settle();
  }
  ~MainWindow() override {
    window->close();
    window.reset();
    Vapp::project().load_defaults();
  }

  // Waits until runs are over, and what they tell is shown.
  bool wait() {
    return QTest::qWaitFor([] { return idle(); }, 60000);
  }
  // The entry of the menu, through its keys.
  void keys(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    // Off-screen there is nobody who would do it when a box closes.
    if (!QApplication::activeWindow())
      QApplication::setActiveWindow(window.get());
    QWidget * const focus = QApplication::focusWidget();
    QTest::keyClick(focus ? focus : window.get(), key, modifiers);
    Windows::settle();
  }
  QAction & entry(char const * name) {
    auto * action = window->findChild<QAction *>(name);
    if (!action)
      throw std::logic_error(std::string("no entry ") + name);
    return *action;
  }
  // The entry's button of the tool bar, by the mouse.
  void tool(char const * name) {
    auto * bar = window->findChild<QToolBar *>();
    QTest::mouseClick(bar->widgetForAction(&entry(name)), Qt::LeftButton);
  }
  std::set<std::string> enabled() {
    std::string names;
    for (QAction const * action : window->findChildren<QAction *>())
      if (QString const name = action->objectName();
          action->isEnabled() && (name.startsWith("g") || name.startsWith("fDef")))
        names += name.toStdString() + " ";
    return words(names);
  }
  static std::set<std::string> words(std::string const & text) {
    std::istringstream in(text);
    return {std::istream_iterator<std::string>(in), {}};
  }
  // What the message window holds.
  std::string messages() {
    gMessageList & list = window->frame().messages();
    std::set<std::size_t> rows;
    for (std::size_t i = 0; i < list.rows(); ++i)
      rows.insert(i);
    return list.copy(rows);
  }
  // Sources that take a while.
  void write_big_source() {
    std::string text;
    for (int i = 0; i < 100000; ++i)
      text += "/** @function\n * Does it. */\nvoid f" + std::to_string(i) + "();\n";
    folder.write("src/big.h", text);
  }
  void write_project() {
    auto group = make_ref<cMapObj>();
    group->set("path", cat::make("src"));
    group->set("files", cat::make("*.h"));
    auto groups = make_ref<cMapObj>();
    groups->set("1", group);
    Vapp::project().create({folder.path("p.vlp"), folder.path(), groups, "out", "d.vls"});
    Vapp::project().save();
    EXPECT_TRUE(QTest::qWaitFor([&] { return entry("gAnaStart").isEnabled(); }, 60000));
  }

  TempFolder folder;
  Desktop desktop;
  std::unique_ptr<gMainWindow> window;
  ModalUser user;
};

TEST_F(MainWindow, first_start_says_what_to_do_next) {
  auto const * open = window->findChild<QCommandLinkButton *>("gVlpOpen");
  ASSERT_TRUE(open);
  EXPECT_TRUE(open->isVisible());
  EXPECT_EQ(Windows::nameless(*window), std::vector<std::string>{});
  Windows::picture(*window, "first_start");
  write_project();
  Windows::settle();
  EXPECT_FALSE(open->isVisible());
  EXPECT_NE(window->windowTitle().indexOf("p.vlp"), -1);
  Windows::picture(*window, "idle");
}

TEST_F(MainWindow, from_nothing_to_finished_pages_by_keys_alone) {
  user.scripts.push_back([&](QWidget & dialog) {
    auto const keys = [](std::string const & text) {
      QTest::keyClicks(QApplication::focusWidget(), QString::fromStdString(text));
    };
    auto const tab_to = [](std::string const & field) {
      for (int i = 0; i < 20 && Windows::focus() != field; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        Windows::settle();
      }
      EXPECT_EQ(Windows::focus(), field);
    };
    tab_to("path");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
    keys(folder.path("p"));
    tab_to("script");
    keys("d.vls");
    tab_to("output");
    keys("out");
    tab_to("inputs");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    Windows::settle();
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  user.scripts.push_back([](QWidget & dialog) {
    Windows::child(dialog, "groups").setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Insert);
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  user.scripts.push_back([](QWidget & dialog) {
    QTest::keyClicks(QApplication::focusWidget(), "src");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), "*.h");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  keys(Qt::Key_N, Qt::ControlModifier);
  ASSERT_TRUE(Vapp::project().is_open());
  keys(Qt::Key_F5);
  ASSERT_TRUE(wait());
  keys(Qt::Key_F6);
  ASSERT_TRUE(wait());
  Windows::settle();
  EXPECT_TRUE(fs::exists(folder.path("out/htm/index.htm")));
}

TEST_F(MainWindow, from_nothing_to_finished_pages_by_clicks_alone) {
  user.scripts.push_back([&](QWidget & chooser) {
    auto * dialog = qobject_cast<QFileDialog *>(&chooser);
    ASSERT_TRUE(dialog);
    dialog->setDirectory(QString::fromStdString(folder.path()));
    auto * list = chooser.findChild<QListView *>("listView");
    QModelIndex row;
    ASSERT_TRUE(QTest::qWaitFor([&] {
      auto const found = list->model()->match(list->model()->index(0, 0, list->rootIndex()),
                                              Qt::DisplayRole, "src", 1, Qt::MatchExactly);
      row = found.isEmpty() ? QModelIndex() : found.first();
      return row.isValid();
    }));
    QPoint const place = list->visualRect(row).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    Windows::click(chooser, "Choose");
  });
  QTest::mouseClick(&Windows::child(*window, "gVlpQuick"), Qt::LeftButton);
  ASSERT_TRUE(Vapp::project().is_open());
  QWidget & view = Windows::child(*window, "view_result");
  ASSERT_TRUE(QTest::qWaitFor([&] { return view.isVisible(); }, 60000)) << messages();
  EXPECT_NE(messages().find("Start page: "), std::string::npos);
  QTest::mouseClick(&view, Qt::LeftButton);
  EXPECT_TRUE(desktop.started.back().ends_with("/src/site/htm/index.htm"));
  user.answer("No"); // the project is left as it is
  QTimer::singleShot(0, window.get(), [this] { window->QMainWindow::close(); });
  QTimer::singleShot(20000, window.get(), [] { QApplication::exit(1); });
  EXPECT_EQ(QApplication::exec(), 0) << "the program ends with its window";
  EXPECT_FALSE(window->isVisible());
}

TEST_F(MainWindow, from_a_project_to_finished_pages_by_clicks_alone) {
  write_project();
  user.scripts.push_back([&](QWidget & chooser) {
    auto * dialog = qobject_cast<QFileDialog *>(&chooser);
    ASSERT_TRUE(dialog);
    chooser.setFocus(); // what is being typed isn't replaced
    dialog->selectFile(QString::fromStdString(folder.path("p.vlp")));
    Windows::click(chooser, "Open");
  });
  tool("gVlpOpen");
  ASSERT_EQ(Vapp::project().name(), "p.vlp");
  tool("gAnaStart");
  ASSERT_TRUE(wait());
  EXPECT_TRUE(QTest::qWaitFor([&] { return entry("gOutHTML").isEnabled(); }, 60000));
  tool("gOutHTML");
  ASSERT_TRUE(wait());
  QWidget & view = Windows::child(*window, "view_result");
  EXPECT_TRUE(QTest::qWaitFor([&] { return view.isVisible(); })) << messages();
  Windows::picture(*window, "result");
  QTest::mouseClick(&view, Qt::LeftButton);
  ASSERT_EQ(desktop.started.size(), 1U);
  EXPECT_NE(desktop.started.front().find("/out/htm/index.htm"), std::string::npos);
}

TEST_F(MainWindow, entries_follow_the_state_of_project_and_run) {
  std::string const always = " gExtraOpt gVappHelp", quiet = " gVlpNew gVlpQuick gVlpOpen";
  std::string const open = " gVlpSave gOpenVLS gDefSrc fDefTitle gDefAttr gMsgOptions";
  std::string const sheets = " gAnaPre gAnaSrcpat gAnaAlloc gAnaopt";
  std::string const idle =
      always + quiet + open + sheets + " gVlpSaveAs gDefOutdir gAnaStart gOutOptions gOutHM";
  std::string const targets = " gOutHTML gOutRTF gOutHLP";
  EXPECT_EQ(enabled(), words(always + quiet));
  write_project();
  EXPECT_EQ(enabled(), words(idle));
  // A modeless dialog has its entry for itself.
  keys(Qt::Key_I, Qt::ControlModifier);
  EXPECT_FALSE(entry("gDefSrc").isEnabled());
  QTest::keyClick(QApplication::activeWindow(), Qt::Key_Escape);
  EXPECT_TRUE(QTest::qWaitFor([&] { return enabled() == words(idle); }, 60000));
  keys(Qt::Key_F5);
  ASSERT_TRUE(wait());
  EXPECT_TRUE(QTest::qWaitFor([&] { return enabled() == words(idle + targets); }));
  keys(Qt::Key_F6);
  EXPECT_EQ(enabled(), words(always + open + sheets + " gOutBreakHandler"));
  ASSERT_TRUE(wait());
  EXPECT_TRUE(QTest::qWaitFor([&] { return enabled() == words(idle + targets + " gOpenResult"); }));
  write_big_source();
  user.answer("No");
  keys(Qt::Key_F5);
  EXPECT_EQ(enabled(), words(always + open + " gOutHM gAnaBreakHandler"));
  keys(Qt::Key_F5, Qt::ShiftModifier);
  EXPECT_EQ(enabled(), words(always + open + " gOutHM")) << "once is enough";
  ASSERT_TRUE(wait());
  EXPECT_TRUE(QTest::qWaitFor([&] { return enabled() == words(idle + " gOpenResult"); }))
      << "what a broken run has left can't be converted";
}

TEST_F(MainWindow, a_dropped_project_is_opened_and_other_files_are_not) {
  write_project();
  std::string const other = folder.write("second.vlp", "{}");
  auto const drop = [&](std::vector<std::string> const & paths) {
    QMimeData data;
    QList<QUrl> urls;
    for (std::string const & path : paths)
      urls += path.starts_with("http") ? QUrl(path.c_str()) : QUrl::fromLocalFile(path.c_str());
    data.setUrls(urls);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    if (enter.isAccepted())
      QApplication::sendEvent(window.get(), &event);
  };
  drop({folder.path("src/a.h"), "http://host/third.vlp"});
  EXPECT_EQ(Vapp::project().name(), "p.vlp");
  drop({folder.path("src/a.h"), other});
  EXPECT_EQ(Vapp::project().name(), "second.vlp");
}

TEST_F(MainWindow, closing_during_a_run_asks_stops_and_waits) {
  write_big_source();
  write_project();
  keys(Qt::Key_F5);
  ASSERT_FALSE(idle());
  user.answer("No");
  window->QMainWindow::close();
  EXPECT_TRUE(window->isVisible());
  auto & bar = Windows::child(*window, "progress");
  EXPECT_TRUE(QTest::qWaitFor([&] { return bar.isVisible(); }, 60000));
  Windows::picture(*window, "running");
  user.answer("Yes");
  window->QMainWindow::close();
  EXPECT_TRUE(window->isVisible()) << "first the run has to stop";
  EXPECT_TRUE(QTest::qWaitFor([&] { return !window->isVisible(); }, 60000));
  EXPECT_TRUE(idle());
}

// Reports of all kinds, from another thread: the window never stands still for long.
TEST_F(MainWindow, a_hundred_thousand_reports_keep_the_window_alive) {
  constexpr int reports = 100000;
  std::thread worker([] {
    gMessage const * const kinds[] = {&Msg::no_code_element, &Msg::no_code_element,
                                      &Msg::target_not_found, &Msg::cannot_read};
    for (int i = 0; i < reports; ++i)
      Msg::log.take({*kinds[i % 4], "name" + std::to_string(i),
                     gReportPlace("/src/file" + std::to_string(i % 50) + ".h", i)});
  });
  auto & table = dynamic_cast<QTreeView &>(Windows::child(*window, "messages"));
  qint64 longest = 0;
  QElapsedTimer clock;
  while (table.model()->rowCount() < reports) {
    clock.start();
    QCoreApplication::processEvents();
    longest = std::max(longest, clock.elapsed());
    QTest::qSleep(1);
  }
  worker.join();
  EXPECT_LT(longest, 5000) << "as it would be if each report were looked for among all";
  QScrollBar & bar = *table.verticalScrollBar();
  EXPECT_EQ(bar.value(), bar.maximum()) << "the last line is in sight";
  bar.triggerAction(QAbstractSlider::SliderPageStepSub);
  int const where = bar.value();
  Msg::log.take({Msg::cannot_read, "one more", gReportPlace()});
  EXPECT_TRUE(QTest::qWaitFor([&] { return table.model()->rowCount() > reports; }));
  EXPECT_EQ(bar.value(), where) << "who reads further up stays there";
  RecordProperty("longest", static_cast<int>(longest));
  Windows::picture(*window, "reports");
}

TEST_F(MainWindow, reports_are_filtered_found_copied_and_opened) {
  for (int i = 0; i < 9; ++i)
    Msg::log.take({i % 3 == 0 ? Msg::target_not_found : Msg::no_code_element,
                   "name" + std::to_string(i),
                   gReportPlace("/src/" + std::to_string(i % 2) + "a.h", i + 1)});
  auto & table = dynamic_cast<QTreeView &>(Windows::child(*window, "messages"));
  auto const rows = [&] { return table.model()->rowCount(); };
  ASSERT_TRUE(QTest::qWaitFor([&] { return rows() == 9; }));
  QTest::mouseClick(&Windows::child(*window, "warnings"), Qt::LeftButton);
  EXPECT_EQ(rows(), 3);
  QTest::mouseClick(&Windows::child(*window, "warnings"), Qt::LeftButton);
  auto & numbers = dynamic_cast<QComboBox &>(Windows::child(*window, "numbers"));
  numbers.setFocus();
  keys(Qt::Key_End);
  EXPECT_EQ(numbers.currentText(), "430");
  EXPECT_EQ(rows(), 6);
  keys(Qt::Key_Home);
  Windows::type(*window, "file_filter", "1A.h");
  EXPECT_EQ(rows(), 4);
  Windows::type(*window, "file_filter", "");
  table.setFocus();
  keys(Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(QApplication::focusWidget(), "NAME7");
  keys(Qt::Key_Return);
  EXPECT_EQ(table.currentIndex().row(), 7);
  table.setFocus();
  keys(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text().count("name"), 1);
  keys(Qt::Key_Down);
  EXPECT_EQ(table.currentIndex().row(), 8);
  keys(Qt::Key_Up, Qt::ShiftModifier);
  keys(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text().count("name"), 2);
}

} // namespace
