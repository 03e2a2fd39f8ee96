// Whoever writes puts a new file under the old name. So a lock counts only if the name still leads
// to the file that was locked.
#include "vlb/file_lock.h"

#include <cerrno>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

Vlb::gFileLock::gFileLock(std::string const & path, std::chrono::milliseconds patience) {
  constexpr std::chrono::milliseconds step(5);
  auto const end = std::chrono::steady_clock::now() + patience;
  while (!(free_ = try_lock(path)) && std::chrono::steady_clock::now() < end)
    std::this_thread::sleep_for(step);
}

Vlb::gFileLock::~gFileLock() {
  close();
}

void Vlb::gFileLock::close() {
  if (file_ >= 0)
    ::close(file_);
  file_ = -1;
}

bool Vlb::gFileLock::is_still(std::string const & path) const {
  struct stat locked, named;
  return ::fstat(file_, &locked) == 0 && ::stat(path.c_str(), &named) == 0 &&
         locked.st_dev == named.st_dev && locked.st_ino == named.st_ino;
}

bool Vlb::gFileLock::try_lock(std::string const & path) {
  file_ = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (file_ < 0)
    return true;
  bool const locked = ::flock(file_, LOCK_EX | LOCK_NB) == 0;
  if (locked ? is_still(path) : errno != EWOULDBLOCK)
    return true;
  close();
  return false;
}
