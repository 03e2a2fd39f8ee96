// Lets one process after the other read a file, change it and write it back.
#pragma once

#include <chrono>
#include <string>

namespace Vlb {

// Holds the lock of a file that is replaced as a whole, for the life of this object. Only those who
// ask for the lock are kept waiting.
class gFileLock {
public:
  // Waits for others, but not longer than that.
  gFileLock(std::string const & path, std::chrono::milliseconds patience);
  ~gFileLock();
  gFileLock(gFileLock const &) = delete;
  gFileLock & operator=(gFileLock const &) = delete;

  // False if another process still holds it. A file that isn't there, or lies where the system
  // knows no locks, is free.
  bool is_free() const { return free_; }

private:
  bool try_lock(std::string const & path);
  bool is_still(std::string const & path) const;
  void close();

  int file_ = -1;
  bool free_ = false;
};

} // namespace Vlb
