// The life of the main window, from the start to the exit.

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "app/options/options.h"
#include "app/options/project.h"
#include "app/options/settings.h"
#include "app/shell/run.h"
#include "app/shell/signals.h"
#include "app/shell/window/vapp.h"
#include "app/shell/worker.h"
#include "store/cerr.h"
#include "support/temp_folder.h"
#include "test_frame.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

namespace fs = std::filesystem;

class Frame : public testing::Test {
protected:
  Frame() {
    fs::copy(VELLUMAR_SOURCE_DIR "/ini", folder.path("ini"), fs::copy_options::recursive);
    Vapp::set_program_dir(folder.path());
    forget();
    new_window();
  }
  ~Frame() override {
    end_window();
    Vapp::user_break = false;
    Vapp::ana_success = false;
    forget();
  }

  // As in a program that has just been started.
  static void forget() {
    Vapp::options.clear();
    Vapp::options_ini.clear();
    Vapp::project() = Vapp::gProject();
  }

  void new_window() {
    view = std::make_unique<TestView>();
    frame = std::make_unique<gVappFrame>(*view, desktop, gVapp::help_map());
    outside = std::make_unique<TestFrameOutside>(*frame, *view);
    vapp = std::make_unique<gVapp>(*frame, *view);
  }
  void end_window() {
    outside->user().answers = {"no"};
    outside.reset();
    vapp.reset();
    frame.reset();
  }

  bool start(std::string const & file = "") { return vapp->InitInstance(file); }
  std::string shown() {
    std::string text;
    for (std::string const & line : outside->user().shown)
      text += line + "\n";
    outside->user().shown.clear();
    return text;
  }
  std::string messages() {
    std::string text;
    for (std::size_t row = 0; row < frame->messages().rows(); ++row)
      text += frame->messages().whole_line(row) + "\n";
    return text;
  }
  std::string project(char const * name) {
    return folder.write(name, R"({"inputfiles": {}, "ana": {"dialect": "modern"}})");
  }
  // Passes of the loop until no worker is left.
  void wait() {
    for (int pass = 0; pass < 6000; ++pass) {
      frame->idle();
      if (!Vapp::ana_active && !Vapp::output_active)
        return;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    FAIL() << "the run doesn't end";
  }
  gMenuItem const & entry(std::string_view name) {
    gMenuItem const * const item = frame->menu().find(name);
    EXPECT_TRUE(item) << name;
    return *item;
  }

  TempFolder folder;
  TestDesktop desktop;
  std::unique_ptr<TestView> view;
  std::unique_ptr<gVappFrame> frame;
  std::unique_ptr<TestFrameOutside> outside;
  std::unique_ptr<gVapp> vapp;
};

TEST_F(Frame, StartsInOrderAndLeavesTheSettings) {
  std::string raised;
  cFunctionSlot<std::function<void()>> const templates([&] { view->calls += " templates"; });
  cFunctionSlot<std::function<void()>> const init([&] { view->calls += " init"; });
  sig_inittemplates().connect(templates);
  sig_init().connect(init);
  ASSERT_TRUE(start());
  EXPECT_TRUE(view->take_calls().starts_with(" create place show templates init"));
  EXPECT_EQ(view->where, (gRect{265, 200, 970, 770}));
  EXPECT_TRUE(frame->first_start());
  EXPECT_EQ(view->title, "Vellumar  []");
  EXPECT_TRUE(vapp->ExitInstance());
  EXPECT_NE(folder.read("ini/vellumar.ini").find("\"srclink_editor_cmd\": \"notepad.exe\""),
            std::string::npos);
  view->can_be_created = false;
  EXPECT_FALSE(start());
  EXPECT_EQ(view->take_calls(), " create");
}

TEST_F(Frame, ComesBackToPlaceAndProject) {
  std::string const last = project("last.vlp"), named = project("named.vlp");
  ASSERT_TRUE(start(named));
  EXPECT_EQ(view->title, "Vellumar  [named.vlp]");
  view->where = {10, 20, 310, 220};
  frame->close();
  EXPECT_TRUE(view->calls.ends_with(" close"));
  vapp->ExitInstance();
  end_window();
  new_window();
  ASSERT_TRUE(start(folder.write("other.txt", "")));
  EXPECT_EQ(view->where, (gRect{10, 20, 310, 220}));
  EXPECT_EQ(view->title, "Vellumar  [named.vlp]") << "a file of another kind changes nothing";
  frame->drop_files({folder.path("other.txt"), last}, {1, 2});
  EXPECT_EQ(view->title, "Vellumar  [last.vlp]");
  EXPECT_EQ(shown(), "");
}

TEST_F(Frame, KeepsDamagedSettingsAndRepairsWrongTypes) {
  folder.write("ini/vellumar.ini", "{\"vlp_last\": ");
  ASSERT_TRUE(start());
  EXPECT_NE(shown().find("The settings are damaged:\n" + folder.path("ini/vellumar.ini:1: ")),
            std::string::npos);
  EXPECT_TRUE(Vapp::option_bool("vlp_last"));
  EXPECT_TRUE(vapp->ExitInstance());
  EXPECT_EQ(folder.read("ini/vellumar.ini.bad"), "{\"vlp_last\": ");
  folder.write("ini/vellumar.ini",
               R"({"vlp_last": {}, "srclink_editor_cmd": [1], "vlp_file": []})");
  ASSERT_TRUE(start());
  EXPECT_EQ(shown(), "");
  EXPECT_EQ(cat::as_string(Vapp::options_ini.at("srclink_editor_cmd")), "notepad.exe");
}

TEST_F(Frame, TakesTheMenuOfTheFileAndItsOwnEntries) {
  folder.write("vle.mnu", "menu &First\n"
                          "  gVlpSave | &Save... | | Ctrl+S | save\n"
                          "  gNowhere | x\n"
                          "  gVappHelp | H&elp | | | help | Tells how\n"
                          "end\n"
                          "menu &Second\n"
                          "  gVlpNew | && New\n"
                          "  gVlpOpen | Open | | | open\n"
                          "  gNeither\n"
                          "end\n");
  ASSERT_TRUE(start());
  EXPECT_EQ(messages(), "Unknown commands of the menu are left out: gNowhere, gNeither (" +
                            folder.path("vle.mnu") + ")\n");
  std::string labels, tools;
  for (gMenuItem const & menu : frame->menu().menus()) {
    labels += menu.label + ":";
    for (gMenuItem const & item : menu.items)
      labels += (item.kind == gMenuItem::Kind::separator ? "-" : item.label) + ";";
  }
  EXPECT_EQ(labels, "&First:&Save...;H&elp;-;E&xit;&Second:&& New;Open;"
                    "&View:&Toolbar;&Status Bar;&Messages;&?:&About Vellumar...;");
  for (gMenuItem const & item : frame->menu().tool_bar())
    tools += item.picture + ";";
  EXPECT_EQ(tools, "save;help;;open;");
  EXPECT_EQ(entry("gVlpSave").status, "Save");
  EXPECT_EQ(frame->message_string(entry("gVappHelp").id), "Tells how");
  EXPECT_EQ(frame->message_string(entry("gVlpNew").id), "& New");
  EXPECT_EQ(frame->message_string(entry("exit").id), "Ends the program");
}

TEST_F(Frame, ADamagedMenuIsToldShortlyAndThatOfTheProgramIsTaken) {
  std::string text = "\xff" + std::string(90000, 'x') + "\n";
  for (int i = 0; i < 500; ++i)
    text += "menu m\n" + std::string(3, static_cast<char>(i % 31 + 1)) + "\n";
  folder.write("vle.mnu", text);
  ASSERT_TRUE(start());
  EXPECT_TRUE(frame->menu().find("gVlpOpen"));
  EXPECT_NE(messages().find("..., \\x01"), std::string::npos) << messages();
  EXPECT_LT(messages().size(), 400U);
  text.clear();
  for (int i = 0; i < 5000; ++i)
    text += "gVlpOpen\n";
  folder.write("vle.mnu", text);
  frame->load_menu();
  EXPECT_EQ(frame->handlers().size(), 1000U) << "each of them is asked for its state all the time";
}

TEST_F(Frame, HasAMenuWithoutAFile) {
  fs::remove(folder.path("ini/vle.mnu"));
  ASSERT_TRUE(start());
  ASSERT_EQ(frame->menu().menus().size(), 3u);
  EXPECT_EQ(frame->menu().menus()[0].items.size(), 1u);
  view->take_calls();
  EXPECT_TRUE(frame->run("tool_bar"));
  EXPECT_TRUE(frame->run("status_bar"));
  EXPECT_TRUE(frame->run("tool_bar"));
  EXPECT_EQ(view->take_calls(), " tools- menu status- menu tools+ menu");
  EXPECT_TRUE(entry("tool_bar").checked && !entry("status_bar").checked);
  EXPECT_FALSE(frame->run("gVlpNew"));
  EXPECT_TRUE(frame->run("about"));
  EXPECT_EQ(shown(), "dialog: gAboutDialog\n");
  EXPECT_TRUE(frame->run("exit"));
  EXPECT_EQ(view->take_calls(), " close");
}

TEST_F(Frame, RunsOnlyWhatIsEnabledAndTellsTheViewOfChanges) {
  ASSERT_TRUE(start());
  EXPECT_FALSE(entry("gVlpSave").enabled);
  EXPECT_FALSE(frame->run("gDefOutdir"));
  view->take_calls();
  frame->idle();
  EXPECT_EQ(view->take_calls(), "");
  frame->drop_files({project("p.vlp")}, {});
  EXPECT_NE(view->take_calls().find(" menu"), std::string::npos);
  EXPECT_TRUE(entry("gVlpSave").enabled);
  auto const & tools = frame->menu().tool_bar();
  EXPECT_TRUE(std::ranges::find(tools, "gVlpSave", &gMenuItem::name)->enabled);
  EXPECT_TRUE(frame->run("gDefOutdir"));
  EXPECT_NE(shown().find("dialog: gDefineOutdir"), std::string::npos);
  int idle_passes = 0;
  {
    cFunctionSlot<std::function<void()>> const slot([&] { ++idle_passes; });
    sig_idle().connect(slot);
    EXPECT_TRUE(vapp->OnIdle());
  }
  EXPECT_FALSE(vapp->OnIdle());
  EXPECT_EQ(idle_passes, 1);
}

TEST_F(Frame, ShowsHelpInTheBrowser) {
  folder.write("doc/htm/vellmr.map", "100 new.htm\n300 window.htm\n");
  ASSERT_TRUE(start());
  frame->help_on_entry(entry("gVlpNew").id);
  frame->help_on_entry(entry("exit").id);
  frame->help_on(100);
  frame->run("gVappHelp");
  sig_onhelpfinder()();
  std::string pages;
  for (std::string const & line : desktop.started)
    pages += line.substr(line.rfind('/') + 1) + " ";
  EXPECT_EQ(pages, "new.htm window.htm new.htm index.htm index.htm ");
}

TEST_F(Frame, AsksBeforeItGoesWithChanges) {
  ASSERT_TRUE(start(project("p.vlp")));
  Vapp::project().mark_modified();
  view->take_calls();
  frame->close();
  EXPECT_EQ(view->take_calls(), "") << "cancel";
  outside->user().answers = {"no"};
  frame->close();
  EXPECT_EQ(view->take_calls(), " close");
  outside->user().answers = {"yes"};
  frame->close();
  EXPECT_EQ(view->take_calls(), " close");
  EXPECT_FALSE(Vapp::project().modified());
}

void work_until_break() {
  while (!Vapp::user_break)
    std::this_thread::yield();
}

void begin_conversion() {
  Vapp::ana_active = false;
  Vapp::user_break = false;
  Vapp::output_active = true;
  Shell::start_worker({.work = work_until_break, .finished = [] { Vapp::output_active = false; }});
}

TEST_F(Frame, StopsARunAndWhatFollowsItBeforeItGoes) {
  ASSERT_TRUE(start(project("p.vlp")));
  Vapp::ana_active = true;
  Shell::start_worker({.work = work_until_break, .finished = begin_conversion});
  view->take_calls();
  outside->user().answers = {"no", "yes"};
  frame->close();
  EXPECT_FALSE(Vapp::user_break);
  frame->close();
  EXPECT_TRUE(Vapp::user_break);
  EXPECT_EQ(view->calls.find("close"), std::string::npos);
  frame->close();
  EXPECT_EQ(std::ranges::count(outside->user().shown, "ask: The documentation is still being made."
                                                      "\n\nStop and close Vellumar?"),
            2)
      << "nothing is asked again while it stops";
  wait();
  EXPECT_TRUE(view->calls.ends_with(" close"));
  EXPECT_TRUE(Vapp::user_break);
}

TEST_F(Frame, DocumentsAFolderAndKeepsTheProject) {
  folder.write("My Lib/src/a.h", "/** Does it. */\nvoid f();\n");
  folder.write("My Lib/src/b.txt", "");
  ASSERT_TRUE(start());
  std::string const shipped = folder.read("ini/quick.vlp");
  outside->user().answers = {folder.path("nowhere")};
  frame->run("gVlpQuick");
  EXPECT_NE(shown().find("box: Folder does not exist: "), std::string::npos);
  EXPECT_TRUE(frame->first_start());
  outside->user().answers = {folder.path("My Lib/src")};
  EXPECT_FALSE(entry("gOpenResult").enabled);
  EXPECT_TRUE(frame->run("gVlpQuick"));
  EXPECT_TRUE(entry("gAnaBreakHandler").enabled);
  EXPECT_FALSE(entry("gVlpQuick").enabled);
  wait();
  frame->idle();
  EXPECT_EQ(view->title, "Vellumar  [My Lib.vlp *]");
  EXPECT_TRUE(fs::exists(folder.path("My Lib/src/site/htm/index.html")) ||
              fs::exists(folder.path("My Lib/src/site/htm/index.htm")))
      << messages();
  EXPECT_NE(view->calls.find(" progress"), std::string::npos);
  EXPECT_FALSE(frame->progress().busy());
  EXPECT_TRUE(frame->run("gOpenResult"));
  ASSERT_EQ(desktop.started.size(), 1u);
  EXPECT_TRUE(desktop.started[0].starts_with("browser|file://"));
  EXPECT_NE(desktop.started[0].find("/My%20Lib/src/site/htm/"), std::string::npos);
  outside->user().answers = {folder.path("My Lib/src/own.vlp")};
  EXPECT_TRUE(frame->run("gVlpSave"));
  EXPECT_EQ(outside->user().last_choice.name, "My Lib.vlp") << "the name is offered";
  EXPECT_EQ(folder.read("ini/quick.vlp"), shipped);
  ASSERT_TRUE(Vapp::project().load(folder.path("My Lib/src/own.vlp")));
  EXPECT_TRUE(fs::exists(Vapp::option_path("vls_file").c_str()));
  outside->user().answers = {"no"}; // to another folder than the one with the results
  EXPECT_TRUE(frame->run("gAnaStart"));
  wait();
  EXPECT_TRUE(Vapp::ana_success) << messages();
}

TEST_F(Frame, OpensThePlaceOfAMessage) {
  ASSERT_TRUE(start());
  desktop.programs.insert("notepad.exe");
  Msg::log(Msg::undefined_file_group, "g", {folder.write("a.h", ""), 3});
  frame->idle();
  frame->open_message(0);
  frame->open_message(99);
  EXPECT_EQ(desktop.started, std::vector<std::string>{"notepad.exe|" + folder.path("a.h")});
  clear_msgwindow();
  show_msgwindow(false);
  view->take_calls();
  frame->idle();
  EXPECT_EQ(view->take_calls(), " cleared messages- menu");
  EXPECT_EQ(frame->messages().size(), 0u);
}

TEST_F(Frame, EndsWithABoxWhenSomethingIsThrown) {
  std::string const head = "box: Unbehandelte C++-Ausnahme\nProgramm wird beendet\n";
  EXPECT_EQ(vapp->Run([] { return 7; }), 7);
  EXPECT_EQ(vapp->Run([]() -> int { throw std::runtime_error("a"); }), 1);
  EXPECT_EQ(vapp->Run([]() -> int { throw "b"; }), 1);
  EXPECT_EQ(vapp->Run([]() -> int { throw cException("c"); }), 1);
  EXPECT_EQ(shown(), head + "a\n" + head + "b\n" + head + "c\n");
}

} // namespace
