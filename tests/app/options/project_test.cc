// The life of a project, with scripted answers in the place of windows.
#include "app/options/project.h"
#include "app/options/run_input.h"

#include <gtest/gtest.h>

#include <csignal>

#include <sys/resource.h>

#include "app/options/options.h"
#include "app/options/settings.h"
#include "store/cerr.h"
#include "support/temp_folder.h"
#include "support/test_outside.h"

namespace {

struct Project : testing::Test {
  Project() {
    project.load_defaults();
    Vapp::options_ini.erase("vlp_dir");
    outside.shown.clear();
  }
  ~Project() override {
    project.load_defaults();
    Vapp::options_ini.erase("vlp_dir");
  }
  // What was shown since the last call, without titles.
  std::string shown() {
    std::string text;
    for (std::string const & line : outside.shown)
      if (!line.starts_with("title: "))
        text += line + "\n";
    outside.shown.clear();
    return text;
  }
  // A project in the folder, clean.
  gPathstring make(std::string const & name) {
    EXPECT_TRUE(project.create({folder.path(name), "", nullptr, "out", "a.vls"}));
    EXPECT_TRUE(project.save());
    outside.shown.clear();
    return project.path();
  }
  void load_fails(std::string const & name) {
    outside.answers = {"no", folder.path(name), "cancel"};
    EXPECT_FALSE(project.open());
    EXPECT_FALSE(project.is_open());
    EXPECT_EQ(Vapp::option_int("ana/tab_width"), 4) << "the tree is one of defaults";
    EXPECT_TRUE(Vapp::option("ana/srcpat_unit/spt_class"));
  }

  TempFolder folder;
  TestOutside outside;
  Vapp::gProject & project = Vapp::project();
};

TEST_F(Project, IsNamedAndModifiedWhenNewAndCleanWhenSaved) {
  ASSERT_TRUE(project.create({folder.path("new.vlp"), "src", nullptr, "", "a.vls"}));
  EXPECT_TRUE(project.is_open() && project.modified());
  EXPECT_EQ(outside.shown.back(), "title: Vellumar  [new.vlp *]");
  EXPECT_EQ(Vapp::option_string("inputcurdir"), "src");
  EXPECT_EQ(cat::as_string(Vapp::options_ini["vlp_dir"]), folder.path());
  ASSERT_TRUE(project.save());
  EXPECT_FALSE(project.modified());
  std::string const text = folder.read("new.vlp");
  EXPECT_TRUE(text.starts_with("{\n  \"ana\": {\n")) << "the root is sorted";
  EXPECT_EQ(text.find("\"val\":"), std::string::npos) << "values are never stored";
  EXPECT_EQ(text.find(Vapp::program_dir()), std::string::npos) << "nothing of this machine";
  EXPECT_EQ(Vapp::option_string("rtf/vlt"), Vapp::ini_dir().append("rtf.vlt"));
  EXPECT_TRUE(Vapp::option("attr/UNITTYPE/val/class"));
  ASSERT_TRUE(project.load(folder.path("new.vlp"), false));
  ASSERT_TRUE(project.save());
  EXPECT_EQ(folder.read("new.vlp"), text) << "loading and saving changes nothing";
}

TEST_F(Project, FilesKeepWhatTheyHaveAndGetDefaultsForTheRest) {
  Vapp::ana_success = true;
  folder.write("a.vlp", R"({"ana": {"tab_width": 8, "srcpat_unit": {}}, "atc_title": "T"})");
  ASSERT_TRUE(project.load(folder.path("a.vlp")));
  EXPECT_FALSE(Vapp::ana_success || project.modified());
  EXPECT_EQ(Vapp::option_int("ana/tab_width"), 8);
  EXPECT_EQ(Vapp::option_int("ana/alloc/gen_unit"), 11);
  EXPECT_TRUE(Vapp::option("ana/srcpat_unit/spt_class"));
  EXPECT_EQ(shown(), "");
  EXPECT_EQ(outside.log_lines, std::vector<std::string>{"Project loaded: " + folder.path("a.vlp")});
  folder.write("empty.vlp", "");
  ASSERT_TRUE(project.load(folder.path("empty.vlp")));
  EXPECT_EQ(Vapp::option_int("ana/tab_width"), 4);
  EXPECT_FALSE(Vapp::option("atc_title")) << "nothing stays of the project before";
}

TEST_F(Project, ValuesOfTheWrongTypeCountAsAbsent) {
  folder.write("a.vlp", R"({"ana": {"tab_width": "8", "cpp_ext": {}, "pas_ext": null, "alloc": 5,
                                    "srcpat_unit": 1, "srcpat_subentry": [1]},
                            "attr": [], "msg": null, "unitconfig": {"class": [1, 2]},
                            "inputfiles": [{"path": "src"}]})");
  ASSERT_TRUE(project.load(folder.path("a.vlp"), false));
  EXPECT_EQ(shown(), "");
  EXPECT_EQ(Vapp::option_int("ana/tab_width"), 8) << "what can be converted is kept";
  EXPECT_EQ(Vapp::option_string("ana/cpp_ext"), "c; cpp; cxx; h; hpp; hxx");
  EXPECT_EQ(Vapp::option_int("ana/alloc/gen_unit"), 11);
  EXPECT_EQ(Vapp::option_int("msg/err_max"), 0);
  for (char const * path : {"ana/srcpat_unit/spt_class/kwd", "ana/srcpat_subentry/@sline/kwd",
                            "attr/UNITTYPE/val/class"})
    EXPECT_TRUE(Vapp::option(path)) << path;
  EXPECT_EQ(Vapp::run_input().digits("class", "@heritage"), 11);
  EXPECT_EQ(cat::as_string(Vapp::option("inputfiles/0/path")), "src");
}

TEST_F(Project, FailedLoadsAreToldAndAskedAgain) {
  folder.write("cut.vlp", "{\n\"ana\": {");
  folder.write("corrupt.vlp", R"({"attr": {"UNITTYPE": {"valusr": 3}}})");
  folder.write("vector.vlp", R"({"attr": {"X": []}})");
  load_fails("missing.vlp");
  load_fails("cut.vlp");
  EXPECT_TRUE(project.load_error().starts_with(folder.path("cut.vlp:2: "))) << project.load_error();
  std::string const box = "box: Fatal error reading project file '" + folder.path("cut.vlp") +
                          "'.\nPlease choose a different project file.\n";
  EXPECT_NE(shown().find("open: Open Project\n" + box + "open: Open Project\n"), std::string::npos);
  std::streambuf * const before = eros().rdbuf(nullptr);
  load_fails("vector.vlp");
  load_fails("corrupt.vlp");
  eros().rdbuf(before);
  EXPECT_TRUE(project.load_error().ends_with("corrupt.vlp: Bad project file"));
}

TEST_F(Project, SaveFailuresKeepTheFlag) {
  make("a.vlp");
  project.mark_modified();
  std::filesystem::remove(folder.path("a.vlp"));
  std::filesystem::create_directory(folder.path("a.vlp"));
  folder.write("a.vlp/in the way", "");
  EXPECT_FALSE(project.save());
  EXPECT_EQ(shown(), "box: Could not write the project file.\n");
  EXPECT_TRUE(project.modified() && Vapp::option("attr/UNITTYPE/val/class"));
  gPathstring const path = make("b.vlp");
  project.mark_modified();
  std::filesystem::permissions(path.c_str(), std::filesystem::perms::owner_read);
  EXPECT_FALSE(project.save());
  EXPECT_EQ(shown(), "box: Cannot write\nFile '" + path + "' is read-only\n");
  EXPECT_TRUE(project.modified());
}

// The limit for files stands for a disk that is full.
TEST_F(Project, NothingIsLostWhereADiskIsFullOrAFolderIsGone) {
  make("a.vlp");
  std::string const before = folder.read("a.vlp");
  project.mark_modified();
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  rlim_t const whole = std::exchange(limit.rlim_cur, 100);
  auto const handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &limit);
  EXPECT_FALSE(project.save());
  limit.rlim_cur = whole;
  setrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(shown(), "box: Could not write the project file.\n");
  EXPECT_EQ(folder.read("a.vlp"), before);
  auto const files = std::filesystem::directory_iterator(folder.path());
  EXPECT_EQ(std::distance(begin(files), end(files)), 1) << "half a file is left";
  std::filesystem::remove(folder.path("a.vlp"));
  EXPECT_TRUE(project.save()) << "it was only deleted";
  std::filesystem::create_directory(folder.path("sub"));
  make("sub/a.vlp");
  std::filesystem::remove_all(folder.path("sub"));
  project.mark_modified();
  EXPECT_FALSE(project.save());
  EXPECT_TRUE(project.modified());
  std::filesystem::create_directory(folder.path("sub"));
  EXPECT_TRUE(project.save());
}

TEST_F(Project, ChangesAreAskedForBeforeTheyAreLost) {
  make("a.vlp");
  EXPECT_TRUE(project.ask_to_save());
  EXPECT_EQ(shown(), "") << "nothing to save";
  Vapp::options["out_dir"] = cat::make("changed");
  project.mark_modified();
  outside.answers = {"no", "yes"};
  EXPECT_TRUE(project.ask_to_save());
  EXPECT_TRUE(project.modified());
  EXPECT_TRUE(project.ask_to_save());
  EXPECT_FALSE(project.modified());
  EXPECT_EQ(shown(),
            "ask: Save changes in project 'a.vlp'?\nask: Save changes in project 'a.vlp'?\n");
  EXPECT_NE(folder.read("a.vlp").find("\"changed\""), std::string::npos);
}

TEST_F(Project, InputFilesThatAreGoneLeadToTheQuestion) {
  folder.write("src/a.h");
  make("a.vlp");
  Vapp::options["inputfiles"][0]["path"] = cat::make("src");
  Vapp::options["inputfiles"][0]["files"] = cat::make("*.h");
  ASSERT_TRUE(project.save());
  EXPECT_TRUE(project.load(folder.path("a.vlp")));
  EXPECT_EQ(shown(), "");
  std::filesystem::remove(folder.path("src/a.h"));
  outside.log_lines.clear();
  outside.answers = {"yes"};
  EXPECT_TRUE(project.load(folder.path("a.vlp")));
  EXPECT_EQ(shown(), "ask: The input file specification in the project\nis no longer correct (see "
                     "message window).\n\nCorrect it now?\ndialog: gDefineSrc\n");
  EXPECT_EQ(outside.log_lines.size(), 2u) << "the load, and what isn't found";
  Vapp::options["inputcurdir"] = cat::make("no such folder");
  EXPECT_FALSE(project.check_input_files());
}

TEST_F(Project, StoredPathsAreTakenAgainstTheProjectsFolder) {
  make("a.vlp");
  std::filesystem::create_directory(folder.path("moved"));
  std::filesystem::rename(folder.path("a.vlp"), folder.path("moved/a.vlp"));
  ASSERT_TRUE(project.load(folder.path("moved/a.vlp")));
  EXPECT_EQ(Vapp::option_path("vls_file"), folder.path("moved/a.vls"));
}

TEST_F(Project, TheLastOneIsLoadedAtTheStart) {
  gPathstring const path = make("a.vlp");
  project.load_defaults();
  Vapp::options_ini["vlp_file"] = cat::make(path);
  project.start(true);
  EXPECT_FALSE(project.is_open()) << "another project was named";
  project.start(false);
  EXPECT_EQ(project.path(), path);
  Vapp::options_ini["vlp_file"] = cat::make("gone.vlp");
  project.start(false);
  EXPECT_EQ(shown(), "box: Fatal error reading project file 'gone.vlp'.\n"
                     "Please choose a different project file.\nopen: Open Project\n");
}

} // namespace
