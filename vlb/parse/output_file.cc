// A buffer in front of the system's write.
#include "vlb/parse/output_file.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Empties a file that holds something. A file that is cut while it is empty would be written to
// the disk at every close on some file systems, which is slow for thousands of temporary files.
bool empty_file(int file) {
  struct stat info;
  return ::fstat(file, &info) == 0 && (info.st_size == 0 || ::ftruncate(file, 0) == 0);
}

} // namespace

bool gOutputFile::open(gPathstring const & path) {
  close();
  file_ = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
  if (file_ < 0)
    return false;
  if (!empty_file(file_)) {
    ::close(std::exchange(file_, -1));
    return false;
  }
  if (!buffer_)
    buffer_ = std::make_unique_for_overwrite<char[]>(size);
  return true;
}

bool gOutputFile::close() {
  if (file_ < 0)
    return true;
  write({buffer_.get(), used_});
  bool const good = ::close(file_) == 0 && !failed_;
  file_ = -1;
  used_ = 0;
  failed_ = false;
  return good;
}

void gOutputFile::flush_for(std::string_view text) {
  if (file_ < 0)
    return;
  write({buffer_.get(), used_});
  used_ = 0;
  if (text.size() > size)
    write(text);
  else
    used_ = text.copy(buffer_.get(), text.size());
}

void gOutputFile::write(std::string_view text) {
  while (!text.empty() && !failed_) {
    ssize_t const done = ::write(file_, text.data(), text.size());
    if (done >= 0)
      text.remove_prefix(static_cast<std::size_t>(done));
    else
      failed_ = errno != EINTR;
  }
}
