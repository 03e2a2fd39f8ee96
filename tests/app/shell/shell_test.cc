// Commands as a window or the command line uses them: when they are enabled, what they leave in the
// options, and what a conversion does to an earlier result.

#include <gtest/gtest.h>

#include <thread>

#include "app/options/options.h"
#include "app/options/project.h"
#include "app/options/settings.h"
#include "app/shell/option_handlers.h"
#include "app/shell/run.h"
#include "app/shell/run_handlers.h"
#include "app/shell/worker.h"
#include "store/cfactory.h"
#include "store/gglobalobj.h"
#include "support/temp_folder.h"
#include "support/test_outside.h"

namespace {

namespace fs = std::filesystem;

class Shell : public testing::Test {
protected:
  Shell() {
    static bool const ready = (Global::objects().init_all(), true);
    EXPECT_TRUE(ready);
    Vapp::set_program_dir(gPathstring(VELLUMAR_SOURCE_DIR));
    Vapp::options_ini["warn_outdir"] = cat::make(false);
    Vapp::project().load_defaults();
    facts(false, false, false, false);
  }
  ~Shell() override { facts(false, false, false, false); }

  static void facts(bool ana_active, bool output_active, bool ana_success, bool user_break) {
    Vapp::ana_active = ana_active;
    Vapp::output_active = output_active;
    Vapp::ana_success = ana_success;
    Vapp::user_break = user_break;
  }

  // A project with one source, in the test's folder.
  void open_project() {
    folder.write("a.h", "/* @function Does it. */\nvoid f();\n");
    folder.write("d.vls", "@document\n@outfilter\n");
    auto group = make_ref<cMapObj>();
    group->set("path", cat::make(""));
    group->set("files", cat::make("*.h"));
    auto groups = make_ref<cMapObj>();
    groups->set("1", group);
    Vapp::project().create({folder.path("p.vlp"), folder.path(), groups, "out", "d.vls"});
  }

  static void run(char const * name) {
    auto const command = make_handler(name);
    EXPECT_TRUE(command->OnUpdateCommand()) << name;
    EXPECT_EQ(command->OnCommand(), 1) << name;
    ::Shell::wait_for_worker();
  }

  TestOutside outside;
  TempFolder folder;
};

TEST_F(Shell, commands_are_enabled_by_the_state_of_project_and_workers) {
  std::string const always = " gExtraOpt gVappHelp";
  std::string const open = " gVlpSave gOpenVLS fDefTitle gDefSrc gDefAttr gMsgOptions";
  std::string const quiet = " gVlpNew gVlpOpen gVlpQuick";
  std::string const open_quiet = " gVlpSaveAs gDefOutdir gOutOptions gAnaStart";
  std::string const sheets = " gAnaPre gAnaopt gAnaAlloc gAnaSrcpat";
  struct {
    bool open, ana_active, output_active, ana_success, user_break;
    std::string enabled;
  } const rows[] = {
      {false, false, false, false, false, quiet + always},
      {true, false, false, false, false, quiet + always + open + open_quiet + sheets + " gOutHM"},
      {true, false, false, true, true,
       quiet + always + open + open_quiet + sheets + " gOutHM gOutHTML gOutRTF gOutHLP"},
      {true, true, false, false, false, always + open + " gOutHM gAnaBreakHandler"},
      {true, true, false, false, true, always + open + " gOutHM"},
      {true, false, true, true, false, always + open + sheets + " gOutBreakHandler"},
      {true, false, true, true, true, always + open + sheets},
  };
  for (auto const & row : rows) {
    Vapp::project().load_defaults();
    if (row.open)
      open_project();
    facts(row.ana_active, row.output_active, row.ana_success, row.user_break);
    std::string expected = row.enabled + " ", actual = " ";
    for (cRepositoryEntry const & entry : cRepoImpl::get(typeid(cMenuHandlerBase))) {
      bool const enabled = make_handler(entry.name)->OnUpdateCommand() != 0;
      EXPECT_EQ(enabled, expected.find(" " + entry.name + " ") != std::string::npos) << entry.name;
      actual += enabled ? entry.name + " " : "";
    }
    EXPECT_EQ(actual.size(), expected.size()) << actual; // every name of the row exists
  }
}

TEST_F(Shell, an_open_dialog_disables_its_command) {
  open_project();
  gAnaPre sheet;
  outside.answers = {"cancel", "yes"};
  sheet.OnCommand();
  EXPECT_TRUE(sheet.OnUpdateCommand());
  sheet.OnCommand();
  EXPECT_FALSE(sheet.OnUpdateCommand());
  EXPECT_TRUE(outside.last_dialog.modeless);
  outside.last_dialog.closed();
  EXPECT_TRUE(sheet.OnUpdateCommand());
}

TEST_F(Shell, reads_menu_files) {
  cHandlerList list;
  std::string const path = folder.write("m.mnu", "! a comment\n"
                                                 "end\n"
                                                 "menu &File\n"
                                                 "  gVlpOpen | &Open... | | Ctrl+O | open\r\n"
                                                 "  -\n"
                                                 "  gNowhere | left out\n"
                                                 "  menu\n"
                                                 "    gAnaAlloc|&Association|2\n"
                                                 "  end\n"
                                                 "end\n"
                                                 "gVappHelp | Help\n"
                                                 "menu open to the end\n" +
                                                     std::string(40, '\n') + "menu x");
  ASSERT_TRUE(CreateMenuFromFile(&list, path.c_str()));
  ASSERT_EQ(list.menu().size(), 3u);
  std::vector<gMenuEntry> const & file = list.menu()[0].entries;
  ASSERT_EQ(file.size(), 3u);
  EXPECT_EQ(file[0].accelerator + "," + file[0].tool + "," + file[0].label, "Ctrl+O,open,&Open...");
  EXPECT_EQ(file[1].kind, gMenuEntry::separator);
  auto * const sheet = dynamic_cast<gModelessHandler *>(file[2].entries.at(0).handler);
  ASSERT_TRUE(sheet);
  EXPECT_EQ(sheet->page(), 2);
  EXPECT_FALSE(CreateMenuFromFile(&list, folder.path("none").c_str()));
  EXPECT_EQ(list.handlers().size(), 3u);
  EXPECT_TRUE(list.DoUpdateCommand(file[0].handler->id()));
  EXPECT_FALSE(list.DoUpdateCommand(sheet->id())); // no project is open
  sheet->Remove();
  EXPECT_EQ(list.menu()[0].entries[2].entries.size(), 0u);
  std::string const shipped = Vapp::ini_dir().append("vle.mnu");
  ASSERT_TRUE(CreateMenuFromFile(&list, shipped.c_str()));
  EXPECT_EQ(list.handlers().size(), cRepoImpl::get(typeid(cMenuHandlerBase)).size());
}

TEST_F(Shell, takes_dropped_projects) {
  open_project();
  ASSERT_TRUE(Vapp::project().save());
  Vapp::project().load_defaults();
  auto const command = make_handler("gVlpOpen");
  EXPECT_EQ(command->OnDropFile(folder.write("a.txt").c_str(), {}), 0);
  EXPECT_EQ(command->OnDropFile(folder.path("p.vlp").c_str(), {}), 1);
  EXPECT_TRUE(Vapp::project().is_open());
  outside.shown.clear();
  EXPECT_EQ(command->OnDropFile(folder.write("bad.vlp", "{").c_str(), {}), 1);
  auto const shown = [&](std::string const & text) {
    return std::any_of(outside.shown.begin(), outside.shown.end(),
                       [&](std::string const & one) { return one.starts_with(text); });
  };
  EXPECT_TRUE(shown("box: Fatal error reading") && shown("open: Open Project"));
}

TEST_F(Shell, drivers_settle_what_their_converter_reads) {
  open_project();
  std::string reason;
  std::string const ini = Vapp::ini_dir();
  struct {
    char const *driver, *key, *set_default, *own, *expected;
    bool below_ini;
  } const rows[] = {
      {"gOutRTF", "rtf/vlt", "rtf/vlt_default", "my.vlt", "my.vlt", false},
      {"gOutRTF", "rtf/style", nullptr, nullptr, "rtfstyle.rtf", true},
      {"gOutHLP", "hlp/vlt", nullptr, nullptr, "hlp.vlt", true},
      {"gOutHLP", "hlp/hpj", "hlp/hpj_default", "../x.hpj", "../x.hpj", false},
      {"gOutHTML", "htm/vlt", nullptr, nullptr, "htm.vlt", true},
  };
  for (auto const & row : rows) {
    std::string const key = row.key, target = key.substr(0, 3);
    if (row.own) {
      Vapp::options.submap(target).set(key.substr(4), cat::make(row.own));
      Vapp::options.submap(target).set(key.substr(4) + "_default", cat::make(false));
    }
    Vapp::ana_success = true; // without intermediate code, so that the converter ends at once
    Vapp::user_break = true;
    run(row.driver);
    EXPECT_FALSE(Vapp::user_break);
    EXPECT_EQ(Vapp::option_string("target"), target);
    EXPECT_EQ(cat::as_string(Vapp::option(target + "/out_dir")), folder.path("out/" + target));
    EXPECT_EQ(cat::as_string(Vapp::option(target + "/cur_" + key.substr(4))),
              (row.below_ini ? ini : folder.path()) + "/" + row.expected);
  }
  Vapp::options.submap("htm").set("helpers_dir_default", cat::make(false));
  Vapp::options.submap("htm").set("helpers_dir", cat::make("my/helpers"));
  run("gOutHTML");
  EXPECT_EQ(Vapp::option_string("htm/cur_helpers_dir"), folder.path("my/helpers"));
}

TEST_F(Shell, a_conversion_that_does_not_end_well_leaves_the_earlier_result) {
  open_project();
  run("gAnaStart");
  ASSERT_TRUE(Vapp::ana_success) << outside.report_text();
  run("gOutHTML");
  ASSERT_TRUE(gConversionRun::last_result().success) << outside.report_text();
  EXPECT_EQ(gConversionRun::last_result().start, folder.path("out/htm/index.htm"));
  EXPECT_TRUE(folder.read("out/htm.log").ends_with("HTML - 0 error(s), 0 warning(s)\n"));
  auto const unharmed = [&](char const * what) {
    EXPECT_FALSE(gConversionRun::last_result().success) << what;
    EXPECT_TRUE(fs::exists(folder.path("out/htm/mark"))) << what;
    EXPECT_FALSE(fs::exists(folder.path("out/htm.new"))) << what;
    EXPECT_TRUE(Vapp::ana_success && !Vapp::output_active) << what;
  };
  folder.write("out/htm/mark");
  Vapp::options.submap("htm").set("vlt_default", cat::make(false));
  Vapp::options.submap("htm").set("vlt", cat::make("none.vlt"));
  run("gOutHTML");
  unharmed("no script");
  Vapp::options.submap("htm").set("vlt_default", cat::make(true));
  Vapp::options.submap("htm").set("helpers_dir_default", cat::make(false));
  Vapp::options.submap("htm").set("helpers_dir", cat::make("nowhere"));
  run("gOutHTML");
  unharmed("no auxiliary files");
  EXPECT_NE(folder.read("out/htm.log").find(folder.path("nowhere")), std::string::npos);
  Vapp::options.submap("htm").set("helpers_dir_default", cat::make(true));
  Vapp::options.submap("htm").set("vlt_default", cat::make(true));
  outside.on_status = [](std::string const & text) {
    if (text.starts_with("Writing documentation: HTML "))
      make_handler("gOutBreakHandler")->OnCommand();
  };
  run("gOutHTML");
  unharmed("stopped");
  EXPECT_TRUE(folder.read("out/htm.log").ends_with("User aborted program.\n"));
  outside.on_status = nullptr;
  folder.write("out/htm.new/stale", "of a process that was killed");
  run("gOutHTML");
  EXPECT_TRUE(gConversionRun::last_result().success);
  EXPECT_TRUE(fs::exists(folder.path("out/htm/mark"))) << "no run has written it";
  EXPECT_FALSE(fs::exists(folder.path("out/htm/stale")));
}

// Who waits for the worker waits for what follows it, too; and a stop that comes between the two
// isn't lost.
TEST_F(Shell, a_folder_is_documented_in_one_go_unless_it_is_stopped) {
  auto const pages = [&] { return fs::exists(folder.path("src/site/htm/index.htm")); };
  folder.write("src/a.h", "/** Does it. */\nvoid f();\n");
  fs::create_symlink(folder.write("b.h", "void g();\n"), folder.path("src/b.h"));
  outside.answers = {folder.path("src")};
  std::unique_ptr<cMenuHandlerBase> const quick = make_handler("gVlpQuick");
  quick->OnCommand();
  std::string const log = "src/site/ana.log";
  while (folder.read(log.c_str()).find(" error(s)") == std::string::npos)
    std::this_thread::yield();
  make_handler("gAnaBreakHandler")->OnCommand();
  ::Shell::wait_for_worker();
  EXPECT_FALSE(pages());
  outside.answers = {folder.path("src"), "no"};
  quick->OnCommand();
  ::Shell::wait_for_worker();
  EXPECT_TRUE(pages()) << outside.report_text();
  std::string told;
  for (std::string const & line : outside.log_lines)
    told += line + "\n";
  EXPECT_NE(told.find("User aborted program."), std::string::npos);
  EXPECT_NE(told.find("Left out because the link leads out"), std::string::npos);
  EXPECT_NE(told.find("\nSources:    1 file\n"), std::string::npos) << told;
}

// A run and a conversion have their own copy of the options: whatever is changed or saved
// meanwhile, they write the same. The thread sanitizer sees to it that nothing is shared.
TEST_F(Shell, the_options_may_change_while_a_run_goes_on) {
  open_project();
  auto const change_all = [] {
    Vapp::project().save();
    for (Vapp::gOptionRow const & row : Vapp::option_rows())
      if (row.tree == Vapp::gOptionTree::project && row.origin != Vapp::gOptionOrigin::run) {
        cMapObj & holder = Vapp::holder_of(Vapp::options, row);
        cRef<cObj> const before = holder.at(Vapp::key_of(row));
        holder.erase(Vapp::key_of(row));
        if (before)
          holder.set(Vapp::key_of(row), before->clone());
      }
  };
  auto const run_while_changing = [&](char const * driver) {
    make_handler(driver)->OnCommand();
    while (!::Shell::collect_worker())
      change_all();
  };
  run("gAnaStart");
  run("gOutHTML");
  std::string const code = folder.read("out/d.atc"), page = folder.read("out/htm/index.htm");
  std::unique_ptr<cMenuHandlerBase> const start = make_handler("gAnaStart");
  start->OnCommand();
  while (!::Shell::collect_worker())
    change_all();
  ASSERT_TRUE(Vapp::ana_success) << outside.report_text();
  run_while_changing("gOutHTML");
  EXPECT_TRUE(gConversionRun::last_result().success);
  EXPECT_FALSE(code.empty() || page.empty());
  EXPECT_EQ(folder.read("out/d.atc"), code);
  EXPECT_EQ(folder.read("out/htm/index.htm"), page);
}

} // namespace
