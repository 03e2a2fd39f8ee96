#include <gtest/gtest.h>

#include "vlb/gexception.h"
#include "vlb/gsrcfile.h"

namespace {

TEST(gPathstring, parts_of_a_path) {
  struct {
    char const *path, *dir, *file, *base, *extension;
  } const cases[] = {
      {"", "", "", "", ""},
      {"a.b", "", "a.b", "a", "b"},
      {"/a.b.c", "/", "a.b.c", "a.b", "c"},
      {"dir.x/name", "dir.x", "name", "name", ""},
      {"/d/e/.hidden", "/d/e", ".hidden", ".hidden", ""},
      {"d/", "d", "", "", ""},
      {"d/a.", "d", "a.", "a", ""},
      {"C:/a.b", "C:/", "a.b", "a", "b"},
      {"d/..", "d", "..", "..", ""},
  };
  for (auto const & one : cases) {
    gPathstring const path(one.path);
    EXPECT_EQ(path.dir_name(), one.dir) << one.path;
    EXPECT_EQ(path.file_name(), one.file) << one.path;
    EXPECT_EQ(path.base_name(), one.base) << one.path;
    EXPECT_EQ(path.extension(), one.extension) << one.path;
  }
}

TEST(gPathstring, extensions_belong_to_the_last_component) {
  EXPECT_EQ(gPathstring("dir.x/name").set_extension("atc"), "dir.x/name.atc");
  EXPECT_EQ(gPathstring("d/name.a.b").set_extension("atc"), "d/name.a.atc");
  EXPECT_EQ(gPathstring("d/name.a").set_extension(""), "d/name");
  EXPECT_EQ(gPathstring("a.b").set_extension_default(".vlp"), "a.b");
  EXPECT_EQ(gPathstring("a").set_extension_default(".vlp"), "a.vlp");
  EXPECT_EQ(gPathstring("x.y/a").set_extension_default(".vlp"), "x.y/a.vlp");
}

TEST(gPathstring, joins_with_exactly_one_separator) {
  struct {
    char const *base, *path, *joined, *absolute;
  } const cases[] = {
      {"/out", "ana.log", "/out/ana.log", "/out/ana.log"},
      {"/out/", "ana.log", "/out/ana.log", "/out/ana.log"},
      {"/", "x", "/x", "/x"},
      {"", "x", "x", "x"},
      {"/out", "", "/out", "/out"},
      {"/out/", "/x", "/out/x", "/x"},
      {"/out", "C:/x", "/out/C:/x", "C:/x"},
  };
  for (auto const & one : cases) {
    EXPECT_EQ(gPathstring(one.base).append(one.path), one.joined);
    EXPECT_EQ(gPathstring(one.path).make_absolute(one.base), one.absolute);
  }
}

TEST(gPathstring, normalize_never_climbs_above_the_root) {
  char const * const cases[][2] = {
      {"", ""},          {"a//b/./c", "a/b/c"},  {"a/../b", "b"},
      {"../a/..", ".."}, {"../../a", "../../a"}, {"/../a", "/a"},
      {"//a/", "/a"},    {"a/..", "."},          {"./a", "a"},
      {"/", "/"},        {"C:/../a", "C:/a"},    {"a/b/../../..", ".."},
  };
  for (auto const & [path, normal] : cases) {
    EXPECT_EQ(gPathstring(path).normalize(true), normal) << path;
    EXPECT_EQ(gPathstring(normal).normalize(true), normal);
  }
}

class Languages : public testing::Test {
protected:
  Languages() {
    gSrcFile::set_cpp_ext("c; cpp ;h");
    gSrcFile::set_pas_ext("p;.pas;;");
  }
};

TEST_F(Languages, are_told_by_the_extension_of_the_users_file) {
  struct {
    char const *path, *opath;
    gLanguage language;
    char const *separator, *word;
  } const cases[] = {
      {"a.cpp", "", gLanguage::cpp, "::", "C/C++"},
      {"/tmp/~vl01", "a.H", gLanguage::cpp, "::", "C/C++"},
      {"a.c", "a.pas", gLanguage::pascal, ".", "Pascal/Delphi"},
      {"a.hpp", "", gLanguage::text, "::", "Text"},
      {"c", "", gLanguage::text, "::", "Text"},
  };
  for (auto const & one : cases) {
    gSrcFile const file(one.path, one.opath, 0);
    EXPECT_EQ(file.language(), one.language) << one.path;
    EXPECT_EQ(file.name_sep(), one.separator);
    EXPECT_EQ(file.type_string(), one.word);
  }
  EXPECT_EQ(gSrcFile().language(), gLanguage::text);
}

TEST_F(Languages, files_are_ordered_by_the_path_that_the_user_knows) {
  auto const less = [](char const * a, char const * b) {
    // The temporary names stand the other way round.
    return gSrcFile("/tmp/z", a, 1) < gSrcFile("/tmp/a", b, 2);
  };
  EXPECT_TRUE(less("a.h", "B.h"));
  EXPECT_FALSE(less("B.h", "a.h"));
  EXPECT_TRUE(less("A.h", "a.h")) << "two files on a system that knows case";
  EXPECT_FALSE(less("a.h", "A.h"));
  EXPECT_FALSE(less("a.h", "a.h"));
}

TEST_F(Languages, positions_show_the_users_path_and_refuse_negative_lines) {
  gSrcFile const file("/tmp/~vl01", "src/a.h", 3);
  EXPECT_EQ(gLoc(file, 12).make_string(), "src/a.h:12");
  EXPECT_EQ(gLoc(file, 12).file().path(), "/tmp/~vl01");
  EXPECT_EQ(gLoc(file, 12).file().number(), 3);
  EXPECT_THROW(gLoc(file, -1), gExcInternalErr);
}

} // namespace
