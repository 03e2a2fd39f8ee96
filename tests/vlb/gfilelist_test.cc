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

TEST_F(FileList, folders_times_names_and_what_is_missing_is_told_once) {
  char const * const cases[][3] = {
      {".", "*.cc; *.h; a.h", "a.h B.h b.h x.cc"},
      {"src/one;./src//one/", "c.h", "src/one/c.h"},
      {"src", "*/c.h;two/*.cc", "src/one/c.h src/two/f.cc"},
      {"src/*", "*.h", "src/one/c.h src/two/e.h"},
      {"s?c/*/deep", "*.h", "src/one/deep/d.h"},
      {"src/**", "*.h", "src/one/c.h src/one/deep/d.h src/two/e.h"},
      {"**", "*.cc;?.h", "a.h B.h b.h src/one/c.h src/one/deep/d.h src/two/e.h src/two/f.cc x.cc"},
      {"", ".#*", ".#a.h"},
      {"", "A.H", "a.h"},
      {"none; src/one", "*.h;*.cc;c.h",
       "src/one/c.h ! Folder does not exist: none ! No file matches: src/one/*.cc"},
      {"src/one;src/two", "*.pas", "! No file matches: *.pas"},
      {"a.h", "*", "! Folder does not exist: a.h"},
      {"src", "/no/such.h", "! No file matches: /no/such.h"}};
  for (auto const & [paths, files, expected] : cases)
    EXPECT_EQ(added(paths, files), expected) << paths << " | " << files;
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

} // namespace
