#include <chrono>

#include <gtest/gtest.h>

#include "support/temp_folder.h"
#include "vlb/gfilelist.h"

namespace {

namespace fs = std::filesystem;

class FileList : public testing::Test {
protected:
  FileList() {
    for (char const * name :
         {"a.h", "B.h", "b.h", "x.cc", ".#a.h", "src/one/c.h", "src/one/deep/d.h", "src/two/e.h",
          "src/two/f.cc", "src/.git/g.h", "src/notes.txt"})
      folder.write(name);
    list.cur_dir(folder.path());
  }

  // The files, relative to the folder, and the problems.
  std::string added(gString const & paths, gString const & files) {
    list.clear();
    list.add(paths, files, 1);
    std::string text;
    for (gSrcFile const & file : list.files())
      text += shortened(file.path()) + " ";
    for (gString const & problem : list.problems())
      text += "! " + shortened(problem) + " ";
    return text.substr(0, text.empty() ? 0 : text.size() - 1);
  }

  std::string shortened(std::string text) const {
    std::size_t const at = text.find(folder.path());
    return at == text.npos ? text : text.erase(at, folder.path().size() + 1);
  }

  TempFolder folder;
  gFileList list{0};
};

TEST_F(FileList, folders_times_names) {
  char const * const cases[][3] = {
      {"", "*.h", "a.h B.h b.h"},
      {".", "*.cc; *.h; a.h", "a.h B.h b.h x.cc"},
      {"src/one; src/two", "*.h", "src/one/c.h src/two/e.h"},
      {"src/one;src/two", "*.cc", "src/two/f.cc"},
      {"src/one;./src//one/", "c.h", "src/one/c.h"},
      {"src", "*/c.h;two/*.cc", "src/one/c.h src/two/f.cc"},
      {"src/two", "../notes.txt", "src/notes.txt"},
      {"src/*", "*.h", "src/one/c.h src/two/e.h"},
      {"s?c/*/deep", "*.h", "src/one/deep/d.h"},
      {"src/**", "*.h", "src/one/c.h src/one/deep/d.h src/two/e.h"},
      {"**", "*.cc;?.h", "a.h B.h b.h src/one/c.h src/one/deep/d.h src/two/e.h src/two/f.cc x.cc"},
      {"", ".#*", ".#a.h"},
      {"src", "", ""},
      {"**/deep", "*.h", "src/one/deep/d.h"},
  };
  for (auto const & [paths, files, expected] : cases)
    EXPECT_EQ(added(paths, files), expected) << paths << " | " << files;
}

TEST_F(FileList, a_name_without_wildcards_goes_by_case_first) {
  EXPECT_EQ(added("", "b.h"), "b.h");
  EXPECT_EQ(added("", "A.H"), "a.h");
}

TEST_F(FileList, what_is_missing_is_told_once) {
  EXPECT_EQ(added("none; src/one", "*.h"), "src/one/c.h ! Folder does not exist: none");
  EXPECT_EQ(added("none", "*.h;*.cc"), "! Folder does not exist: none");
  EXPECT_EQ(added("src/x*", "*.h"), "! Folder does not exist: src/x*");
  EXPECT_EQ(added("src/one", "*.cc;c.h"), "src/one/c.h ! No file matches: src/one/*.cc");
  EXPECT_EQ(added("src/one;src/two", "*.pas"), "! No file matches: *.pas");
  EXPECT_EQ(added("a.h", "*"), "! Folder does not exist: a.h");
  EXPECT_EQ(added("src", "/no/such.h"), "! No file matches: /no/such.h");
  EXPECT_FALSE(list.cur_dir(folder.path("none")));
}

TEST_F(FileList, links_neither_loop_nor_leave_nor_repeat) {
  fs::create_directory_symlink("..", folder.path("src/up"));
  fs::create_directory_symlink("/", folder.path("src/root"));
  fs::create_directory_symlink("two", folder.path("src/also"));
  folder.write("other/o.h");
  fs::create_directory_symlink(folder.path("other"), folder.path("src/other"));
  fs::create_symlink("nowhere", folder.path("src/dangling.h"));
  EXPECT_EQ(added("src/*o/**", "e.h"), "src/two/e.h") << "also under two names";
  EXPECT_EQ(added("src/**", "*.h"), "src/one/c.h src/one/deep/d.h src/other/o.h src/two/e.h");
}

TEST_F(FileList, a_pattern_of_many_components_ends) {
  std::string deep = "deep";
  for (int i = 0; i < 60; ++i)
    deep += "/d";
  folder.write(deep + "/f.h");
  EXPECT_EQ(added("deep/**/**/**/**/**/**", "*.h"), deep + "/f.h");
  std::string stars = "src";
  for (int i = 0; i < 500000; ++i)
    stars += "/*";
  EXPECT_TRUE(added(stars, "*.h").starts_with("! Folder does not exist: src/*/*"));
}

TEST_F(FileList, a_large_tree_takes_time_in_proportion) {
  auto const seconds = [this](int files, std::string const & below) {
    for (int i = 0; i < files; ++i)
      folder.write(below + "/" + std::to_string(i % 50) + "/f" + std::to_string(i) + ".hpp");
    auto const start = std::chrono::steady_clock::now();
    added(below + "/**", "*.h;*.hpp;*.c;*.cpp");
    EXPECT_EQ(list.size(), static_cast<std::size_t>(files));
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  };
  double const small = seconds(1000, "small");
  EXPECT_LT(seconds(8000, "large"), 40 * small + 0.2);
}

} // namespace
