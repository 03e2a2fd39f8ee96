#include <gtest/gtest.h>

#include "vlb/gexception.h"
#include "vlb/gsrcfile.h"

namespace {

TEST(gPathstring, parts_of_a_path) {
  char const * const cases[][5] = {{"", "", "", "", ""},
                                   {"/a.b.c", "/", "a.b.c", "a.b", "c"},
                                   {"dir.x/name", "dir.x", "name", "name", ""},
                                   {"/d/e/.hidden", "/d/e", ".hidden", ".hidden", ""},
                                   {"d/a.", "d", "a.", "a", ""},
                                   {"C:/a.b", "C:/", "a.b", "a", "b"},
                                   {"d/..", "d", "..", "..", ""}};
  for (auto const & [text, dir, file, base, extension] : cases) {
    gPathstring const path(text);
    EXPECT_EQ(path.dir_name(), dir) << text;
    EXPECT_EQ(path.file_name(), file) << text;
    EXPECT_EQ(path.base_name(), base) << text;
    EXPECT_EQ(path.extension(), extension) << text;
  }
}

TEST(gPathstring, joins_with_exactly_one_separator) {
  char const * const cases[][4] = {{"/out", "ana.log", "/out/ana.log", "/out/ana.log"},
                                   {"/out", "", "/out", "/out"},
                                   {"/out/", "/x", "/out/x", "/x"},
                                   {"/out", "C:/x", "/out/C:/x", "C:/x"}};
  for (auto const & [base, path, joined, absolute] : cases) {
    EXPECT_EQ(gPathstring(base).append(path), joined);
    EXPECT_EQ(gPathstring(path).make_absolute(base), absolute);
  }
}

TEST(gPathstring, normalize_never_climbs_above_the_root) {
  char const * const cases[][2] = {
      {"a//b/./c", "a/b/c"}, {"../a/..", ".."},   {"/../a", "/a"},        {"//a/", "/a"},
      {"a/..", "."},         {"C:/../a", "C:/a"}, {"a/b/../../..", ".."}, {"", ""},
  };
  for (auto const & [path, normal] : cases) {
    EXPECT_EQ(gPathstring(path).normalize(true), normal) << path;
    EXPECT_EQ(gPathstring(normal).normalize(true), normal);
  }
}

TEST(gSrcFile, its_language_is_told_by_the_extension_of_the_users_file) {
  gSrcFile::set_cpp_ext("c; cpp ;h");
  gSrcFile::set_pas_ext("p;.pas;;");
  char const * const cases[][4] = {{"a.cpp", "", "::", "C/C++"},
                                   {"/tmp/~vl01", "a.H", "::", "C/C++"},
                                   {"a.c", "a.pas", ".", "Pascal/Delphi"},
                                   {"c", "", "::", "Text"}};
  for (auto const & [path, opath, separator, word] : cases) {
    EXPECT_EQ(gSrcFile(path, opath, 0).name_sep(), separator) << path;
    EXPECT_EQ(gSrcFile(path, opath, 0).type_string(), word) << path;
  }
}

TEST(gSrcFile, order_and_positions_go_by_the_path_that_the_user_knows) {
  auto const less = [](char const * a, char const * b) {
    // The temporary names stand the other way round.
    return gSrcFile("/tmp/z", a, 1) < gSrcFile("/tmp/a", b, 2);
  };
  EXPECT_TRUE(less("a.h", "B.h"));
  EXPECT_FALSE(less("B.h", "a.h"));
  EXPECT_TRUE(less("A.h", "a.h")) << "two files on a system that knows case";
  EXPECT_FALSE(less("a.h", "A.h") || less("a.h", "a.h"));
  gSrcFile const file("/tmp/~vl01", "src/a.h", 3);
  EXPECT_EQ(gLoc(file, 12).make_string(), "src/a.h:12");
  EXPECT_THROW(gLoc(file, -1), gExcInternalErr);
}

} // namespace
