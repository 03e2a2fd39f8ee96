#include <atomic>
#include <csignal>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "support/temp_folder.h"
#include "vlb/gfilesystem.h"
#include "vlb/tempfiles.h"

namespace {

namespace fs = std::filesystem;

extern "C" void clean_up_and_end(int) {
  gFileSystem::end_temp_files();
  ::_exit(7);
}

// A new file that lies on the disk; empty text on failure.
gPathstring file_on_disk() {
  gPathstring const path = gFileSystem::get_temp_file_name("~vl");
  int const file = gTempFiles::spill(path);
  return file >= 0 && ::close(file) == 0 ? path : gPathstring();
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
  gPathstring const path = file_on_disk();
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
      gPathstring const path = file_on_disk();
      ASSERT_TRUE(path != "" && (i % 3 != 0 || gFileSystem::remove(path)));
    }
    EXPECT_EQ(left(), 401);
    gPathstring const in_memory = gFileSystem::get_temp_file_name("~vl");
    gFileSystem::remove_temp_files();
    EXPECT_EQ(left(), 0);
    EXPECT_FALSE(gTempFiles::text(in_memory));
  }
  // A folder that someone else removed costs one run only.
  fs::remove_all(std::string(gPathstring(file_on_disk()).dir_name()));
  EXPECT_EQ(file_on_disk(), "");
  gFileSystem::remove_temp_files();
  EXPECT_NE(file_on_disk(), "");
}

TEST_F(TempFiles, in_memory_share_a_budget_that_comes_back) {
  gPathstring const path = gFileSystem::get_temp_file_name("~vl");
  EXPECT_EQ(*gTempFiles::text(path), "");
  std::size_t const all = gTempFiles::usual_budget;
  ASSERT_TRUE(gTempFiles::reserve(all - 5) && gTempFiles::reserve(5));
  EXPECT_FALSE(gTempFiles::reserve(1));
  ASSERT_TRUE(gTempFiles::keep(path, "12345"));
  EXPECT_EQ(*gTempFiles::text(path), "12345");
  gTempFiles::release(all - 5);
  // A new text, a removal and a move to the disk each give the bytes back.
  ASSERT_TRUE(gTempFiles::reserve(3) && gTempFiles::keep(path, "123"));
  EXPECT_FALSE(gTempFiles::reserve(all - 2));
  ASSERT_TRUE(gTempFiles::reserve(all - 3));
  EXPECT_TRUE(gFileSystem::remove(path));
  EXPECT_TRUE(gTempFiles::reserve(3));
  EXPECT_FALSE(gTempFiles::keep(path, "123"));
  EXPECT_TRUE(gTempFiles::reserve(3));
  EXPECT_EQ(left(), 0);
  ::setenv("VELLUMAR_TEMP_MEMORY", "300", 1);
  EXPECT_TRUE(gTempFiles::reserve(44 << 20));
  EXPECT_FALSE(gTempFiles::reserve(1));
  ::unsetenv("VELLUMAR_TEMP_MEMORY");
}

TEST_F(TempFiles, threads_may_make_and_remove_at_once) {
  auto const work = [] {
    for (int i = 0; i < 500; ++i) {
      EXPECT_TRUE(gFileSystem::remove(file_on_disk()));
      gPathstring const path = gFileSystem::get_temp_file_name("~vl");
      EXPECT_TRUE(gTempFiles::reserve(1) && gTempFiles::keep(path, "x"));
      EXPECT_TRUE(gFileSystem::remove(path));
    }
  };
  std::thread other(work);
  work();
  other.join();
  gFileSystem::remove_temp_files();
  EXPECT_EQ(left(), 0);
}

TEST_F(TempFiles, a_process_ends_without_its_own_but_leaves_those_of_its_parent) {
  gPathstring const path = file_on_disk();
  auto const make = [] {
    for (int i = 0; i < 300; ++i)
      file_on_disk();
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

// Starts a process that puts a file on the disk and then waits; done when the file is there.
pid_t wait_with_a_file() {
  int done[2];
  if (::pipe(done) != 0)
    return -1;
  pid_t const child = ::fork();
  if (child == 0) {
    char const good = file_on_disk() != "";
    ::write(done[1], &good, 1) == 1 && ::pause();
    ::_exit(1);
  }
  char good = 0;
  EXPECT_TRUE(::read(done[0], &good, 1) == 1 && good);
  ::close(done[0]);
  ::close(done[1]);
  return child;
}

void kill_and_wait(pid_t child) {
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
}

// Nobody else will; what a living process or the user has there must stay.
TEST_F(TempFiles, of_a_killed_process_are_cleared_away_by_the_next) {
  folder.write("~vl0123456789abcdef/mine", "");
  folder.write("~vl0123456789abcde/~vl0123456789abcdef", "");
  for (char const * made : {"~vl0123456789abcdef", "~vl0123456789abcde"})
    fs::permissions(folder.path(made), fs::perms::owner_all);
  std::ptrdiff_t const before = left();
  for (int i = 0; i < 2; ++i)
    kill_and_wait(wait_with_a_file());
  EXPECT_EQ(left(), before + 2) << "of the second";
  pid_t const living = wait_with_a_file();
  EXPECT_NE(file_on_disk(), "");
  EXPECT_EQ(left(), before + 4) << "its own, and of the living";
  kill_and_wait(living);
  gFileSystem::remove_temp_files();
  EXPECT_NE(gFileSystem::get_temp_file_name("~vl"), "");
  EXPECT_EQ(left(), before) << "also by one that needs no disk";
}

// The other thread is anywhere between the first name and the tenth file.
TEST_F(TempFiles, end_for_good_while_a_thread_makes_them) {
  auto const end_in_the_middle = [](int pause) {
    std::signal(SIGTERM, clean_up_and_end);
    std::atomic<bool> started = false;
    std::thread maker([&] {
      started = true;
      for (;;)
        file_on_disk();
    });
    while (!started)
      ;
    ::usleep(static_cast<unsigned>(pause));
    std::raise(SIGTERM);
  };
  for (int pause = 0; pause < 200; pause += 10) {
    EXPECT_EXIT(end_in_the_middle(pause), testing::ExitedWithCode(7), "");
    ASSERT_EQ(left(), 0) << pause;
  }
}

} // namespace
