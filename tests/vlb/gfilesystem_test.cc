#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "support/temp_folder.h"
#include "vlb/gfilesystem.h"

namespace {

namespace fs = std::filesystem;

// Lets a write fail in the middle, as on a full disk.
class SmallFilesOnly {
public:
  SmallFilesOnly() {
    before_handler_ = std::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &before_);
    rlimit small = before_;
    small.rlim_cur = 1000;
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallFilesOnly() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, before_handler_);
  }

private:
  rlimit before_ = {};
  void (*before_handler_)(int);
};

TEST(gFileSystem, wildcards_match_without_case_and_never_explode) {
  char const * const same[][2] = {
      {"FILE.CPP", "*.cpp"},       {"", "*"},    {"a.h.h", "*.h"}, {"abcbd", "a*b?"},
      {"mississippi", "m*si*p*i"}, {"a\n", "a*"}};
  char const * const other[][2] = {{"file.cpp", "*.c"}, {"", "?"}, {"ab", "a"}, {"abcbdd", "a*b?"}};
  for (auto const & [name, pattern] : same)
    EXPECT_TRUE(gFileSystem::matches(name, pattern)) << name << " " << pattern;
  for (auto const & [name, pattern] : other)
    EXPECT_FALSE(gFileSystem::matches(name, pattern)) << name << " " << pattern;
  gString pattern;
  for (int i = 0; i < 500; ++i)
    pattern += "a*";
  EXPECT_FALSE(gFileSystem::matches(std::string(20000, 'a'), pattern + "b"));
}

TEST(gFileSystem, clearing_a_folder_leaves_what_links_lead_to) {
  TempFolder const folder;
  folder.write("kept/file", "text");
  folder.write("out/sub/deep/file");
  folder.write("out/.hidden");
  fs::create_directory_symlink(folder.path("kept"), folder.path("out/link"));
  fs::create_directory_symlink(folder.path("kept"), folder.path("out/sub/link"));
  EXPECT_TRUE(gFileSystem::clear_dir(folder.path("out"), false));
  EXPECT_TRUE(fs::exists(folder.path("out/sub/deep/file")));
  EXPECT_FALSE(fs::exists(fs::symlink_status(folder.path("out/link"))));
  EXPECT_TRUE(gFileSystem::clear_dir(folder.path("out"), true));
  EXPECT_TRUE(fs::is_empty(folder.path("out")));
  EXPECT_EQ(folder.read("kept/file"), "text");
  EXPECT_FALSE(gFileSystem::clear_dir(folder.path("none"), true));
}

TEST(gFileSystem, reads_any_bytes_but_neither_folders_nor_pipes) {
  TempFolder const folder;
  std::string const bytes("a\0\r\n\xff", 5);
  std::string text;
  for (std::string const & written : {bytes, std::string(200000, 'x'), std::string()}) {
    EXPECT_TRUE(gFileSystem::read_file(folder.write("f", written), text));
    EXPECT_EQ(text, written);
  }
  fs::resize_file(folder.write("huge"), std::uintmax_t(1) << 42);
  ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
  for (char const * bad : {"none", "pipe", ".", "huge"})
    EXPECT_FALSE(gFileSystem::read_file(folder.path(bad), text)) << bad;
}

TEST(gFileSystem, an_atomic_write_keeps_mode_and_links_and_leaves_nothing_beside) {
  TempFolder const folder;
  gPathstring const file = folder.write("f", "old");
  fs::permissions(file.c_str(), fs::perms(0640));
  fs::create_symlink("f", folder.path("link"));
  EXPECT_TRUE(gFileSystem::write_file_atomic(folder.path("link"), "new"));
  EXPECT_EQ(folder.read("f"), "new");
  EXPECT_TRUE(fs::is_symlink(folder.path("link")));
  EXPECT_EQ(fs::status(file.c_str()).permissions(), fs::perms(0640));
  EXPECT_TRUE(gFileSystem::write_file_atomic(folder.path("g"), "text"));
  EXPECT_EQ(folder.read("g"), "text");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 3);
}

TEST(gFileSystem, a_failed_write_costs_nothing) {
  TempFolder const folder;
  folder.write("file", "old");
  folder.write("dir/x", "x");
  for (auto const & bad : {folder.path("file/below"), folder.path("none/f"), folder.path("dir"),
                           std::string("/dev/full")})
    EXPECT_FALSE(gFileSystem::write_file_atomic(bad, "new")) << bad;
  EXPECT_TRUE(fs::exists("/dev/full"));
  {
    SmallFilesOnly const limit;
    EXPECT_FALSE(gFileSystem::write_file_atomic(folder.path("file"), std::string(5000, 'x')));
  }
  EXPECT_EQ(folder.read("file"), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 2);
}

} // namespace
