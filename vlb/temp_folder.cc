// A process that is killed can't clear up, so it must be seen from outside that it is gone: it
// holds a lock of its folder, which the system gives back with its life. Between the making of a
// folder and its lock another process may take it for a left one; then it is made once more.
#include "vlb/temp_folder.h"

#include <cerrno>
#include <ctime>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "vlb/folder.h"
#include "vlb/random_name.h"

namespace {

bool same_place(int folder, char const * path) {
  struct stat held, named;
  return ::fstat(folder, &held) == 0 && ::lstat(path, &named) == 0 && held.st_dev == named.st_dev &&
         held.st_ino == named.st_ino;
}

int open_folder(char const * path) {
  return ::open(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

bool lock(int folder) {
  return ::flock(folder, LOCK_EX | LOCK_NB) == 0;
}

bool is_own(int folder) {
  struct stat held;
  return ::fstat(folder, &held) == 0 && held.st_uid == ::geteuid() && (held.st_mode & 0777) == 0700;
}

void remove_killed(gPathstring const & path, std::string_view prefix) {
  int const folder = open_folder(path.c_str());
  if (folder < 0)
    return;
  if (is_own(folder) && lock(folder) && same_place(folder, path.c_str())) {
    for (Vlb::FolderEntry const & entry : Vlb::list_folder(path))
      if (Vlb::is_random_name(entry.name, prefix))
        ::unlinkat(folder, entry.name.c_str(), 0);
    ::rmdir(path.c_str());
  }
  ::close(folder);
}

} // namespace

int Vlb::make_held_folder(char const * path) {
  constexpr int tries = 100;
  constexpr timespec pause = {0, 1'000'000};
  for (int i = 0; i < tries; ++i) {
    bool const made = ::mkdir(path, 0700) == 0;
    if (!made && (i == 0 || errno != EEXIST))
      return -1;
    int const folder = open_folder(path);
    // Where the system knows no locks nobody takes the folder for a left one.
    bool const mine = folder >= 0 && (lock(folder) || errno != EWOULDBLOCK);
    if (mine && same_place(folder, path))
      return folder;
    if (folder >= 0)
      ::close(folder);
    ::nanosleep(&pause, nullptr);
  }
  return -1;
}

void Vlb::remove_killed_folders(gPathstring const & dir, std::string_view prefix) {
  for (FolderEntry const & entry : list_folder(dir))
    if (entry.kind == EntryKind::folder && is_random_name(entry.name, prefix))
      remove_killed(gPathstring(dir).append(entry.name), prefix);
}
