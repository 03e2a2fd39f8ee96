#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
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

  // Runs `work` in a child process, which ends itself or gets the signal when it waits; returns
  // what waitpid tells.
  template <class Work> static int in_child(Work work, int signal = 0) {
    int ready[2];
    EXPECT_EQ(::pipe(ready), 0);
    pid_t const child = ::fork();
    if (child == 0) {
      work();
      [[maybe_unused]] ssize_t const told = ::write(ready[1], "x", 1);
      while (signal)
        ::pause();
      std::exit(0);
    }
    char told;
    EXPECT_EQ(::read(ready[0], &told, 1), 1);
    if (signal)
      ::kill(child, signal);
    int status = 0;
    ::waitpid(child, &status, 0);
    ::close(ready[0]);
    ::close(ready[1]);
    return status;
  }

  TempFolder folder;
};

unsigned mode_of(std::string const & path) {
  struct stat info = {};
  ::lstat(path.c_str(), &info);
  return info.st_mode & 0777;
}

TEST_F(TempFiles, are_empty_private_and_begin_with_the_prefix) {
  gPathstring const path = gFileSystem::get_temp_file_name("~vl");
  EXPECT_TRUE(path.file_name().starts_with("~vl"));
  EXPECT_EQ(mode_of(path), 0600u);
  EXPECT_EQ(mode_of(path.dir_name()), 0700u);
  EXPECT_TRUE(gPathstring(path.dir_name()).file_name().starts_with("~vl"));
  EXPECT_EQ(gPathstring(path.dir_name()).dir_name(), folder.path());
  EXPECT_NE(gFileSystem::get_temp_file_name("~vl"), path);
}

TEST_F(TempFiles, a_name_that_would_leave_the_folder_or_cannot_be_made_is_refused) {
  EXPECT_EQ(gFileSystem::get_temp_file_name("../x"), "");
  EXPECT_EQ(gFileSystem::get_temp_file_name(std::string(300, 'x')), "");
  ::setenv("TMPDIR", "/no/such/folder", 1);
  EXPECT_EQ(gFileSystem::temp_dir(), "/tmp");
}

TEST_F(TempFiles, removing_all_forgets_nothing_and_the_next_run_starts_anew) {
  for (int run = 0; run < 2; ++run) {
    for (int i = 0; i < 600; ++i) {
      gPathstring const path = gFileSystem::get_temp_file_name("~vl");
      ASSERT_NE(path, "");
      if (i % 3 == 0) {
        EXPECT_TRUE(gFileSystem::remove(path));
      }
    }
    EXPECT_EQ(left(), 401);
    gFileSystem::remove_temp_files();
    EXPECT_EQ(left(), 0);
  }
}

TEST_F(TempFiles, a_folder_that_someone_removed_costs_one_run_only) {
  gPathstring const path = gFileSystem::get_temp_file_name("~vl");
  fs::remove_all(path.dir_name().c_str());
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

TEST_F(TempFiles, none_survives_the_end_of_the_process) {
  auto const make = [] {
    for (int i = 0; i < 300; ++i)
      gFileSystem::get_temp_file_name("~vl");
  };
  EXPECT_EQ(in_child(make), 0);
  EXPECT_EQ(left(), 0);
  for (int signal : {SIGTERM, SIGINT}) {
    auto const handled = [make, signal] {
      std::signal(signal, clean_up_and_end);
      make();
    };
    int const status = in_child(handled, signal);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 7) << status;
    EXPECT_EQ(left(), 0);
  }
}

TEST_F(TempFiles, a_child_process_leaves_those_of_its_parent) {
  gPathstring const path = gFileSystem::get_temp_file_name("~vl");
  EXPECT_EQ(in_child([] {}), 0);
  EXPECT_TRUE(gFileSystem::file_exists(path));
  EXPECT_EQ(in_child([] { gFileSystem::get_temp_file_name("~vl"); }), 0);
  EXPECT_TRUE(gFileSystem::file_exists(path));
  EXPECT_EQ(left(), 2);
}

} // namespace
