#include <csignal>
#include <thread>
#include <unistd.h>

#include <gtest/gtest.h>

#include "support/temp_folder.h"
#include "vlb/gfilesystem.h"

namespace {

namespace fs = std::filesystem;

extern "C" void clean_up_and_end(int) {
  gFileSystem::remove_temp_files();
  ::_exit(7);
}

// Files and folders in the test's folder for temporary files.
class TempFiles : public testing::Test {
protected:
  TempFiles() {
    gFileSystem::remove_temp_files();
    ::setenv("TMPDIR", folder.path().c_str(), 1);
  }
  ~TempFiles() override {
    gFileSystem::remove_temp_files();
    ::unsetenv("TMPDIR");
  }

  std::ptrdiff_t left() const {
    return std::distance(fs::recursive_directory_iterator(folder.path()), {});
  }

  TempFolder folder;
};

TEST_F(TempFiles, are_private_within_the_folder_for_them) {
  auto const mode = [](std::string const & path) {
    return unsigned(fs::status(path).permissions());
  };
  gPathstring const path = gFileSystem::get_temp_file_name("~vl");
  gPathstring const dir = path.dir_name();
  EXPECT_EQ(mode(path), 0600u);
  EXPECT_EQ(mode(dir), 0700u);
  EXPECT_TRUE(path.file_name().starts_with("~vl") && dir.file_name().starts_with("~vl"));
  EXPECT_EQ(dir.dir_name(), folder.path());
  EXPECT_NE(gFileSystem::get_temp_file_name("~vl"), path);
  EXPECT_EQ(gFileSystem::get_temp_file_name("../x"), "");
  EXPECT_EQ(gFileSystem::get_temp_file_name(std::string(300, 'x')), "");
  ::setenv("TMPDIR", "/no/such/folder", 1);
  EXPECT_EQ(gFileSystem::temp_dir(), "/tmp");
}

TEST_F(TempFiles, removing_all_forgets_nothing_and_the_next_run_starts_anew) {
  for (int run = 0; run < 2; ++run) {
    for (int i = 0; i < 600; ++i) {
      gPathstring const path = gFileSystem::get_temp_file_name("~vl");
      ASSERT_TRUE(path != "" && (i % 3 != 0 || gFileSystem::remove(path)));
    }
    EXPECT_EQ(left(), 401);
    gFileSystem::remove_temp_files();
    EXPECT_EQ(left(), 0);
  }
  // A folder that someone else removed costs one run only.
  fs::remove_all(std::string(gPathstring(gFileSystem::get_temp_file_name("~vl")).dir_name()));
  EXPECT_EQ(gFileSystem::get_temp_file_name("~vl"), "");
  gFileSystem::remove_temp_files();
  EXPECT_NE(gFileSystem::get_temp_file_name("~vl"), "");
}

TEST_F(TempFiles, threads_may_make_and_remove_at_once) {
  auto const work = [] {
    for (int i = 0; i < 500; ++i)
      EXPECT_TRUE(gFileSystem::remove(gFileSystem::get_temp_file_name("~vl")));
  };
  std::thread other(work);
  work();
  other.join();
  gFileSystem::remove_temp_files();
  EXPECT_EQ(left(), 0);
}

TEST_F(TempFiles, a_process_ends_without_its_own_but_leaves_those_of_its_parent) {
  gPathstring const path = gFileSystem::get_temp_file_name("~vl");
  auto const make = [] {
    for (int i = 0; i < 300; ++i)
      gFileSystem::get_temp_file_name("~vl");
  };
  EXPECT_EXIT((make(), std::exit(0)), testing::ExitedWithCode(0), "");
  EXPECT_EQ(left(), 2);
  gFileSystem::remove_temp_files();
  EXPECT_EXIT((make(), std::exit(0)), testing::ExitedWithCode(0), "");
  for (int signal : {SIGTERM, SIGINT})
    EXPECT_EXIT((std::signal(signal, clean_up_and_end), make(), std::raise(signal)),
                testing::ExitedWithCode(7), "");
  EXPECT_EQ(left(), 0);
}

} // namespace
