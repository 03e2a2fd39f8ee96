// A buffer in front of the system's write, or of the text of a temporary file that stays in memory.
#include "vlb/parse/output_file.h"

#include <cerrno>
#include <new>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "vlb/tempfiles.h"

namespace {

// Empties a file that holds something. A file that is cut while it is empty would be written to
// the disk at every close on some file systems, which is slow for thousands of temporary files.
bool empty_file(int file) {
  struct stat info;
  return ::fstat(file, &info) == 0 && (info.st_size == 0 || ::ftruncate(file, 0) == 0);
}

} // namespace

// A file that was left open belongs to work that has failed, so what can't be written is lost with
// it.
gOutputFile::~gOutputFile() {
  try {
    close();
  } catch (std::bad_alloc const &) {
    if (file_ >= 0)
      ::close(file_);
  }
}

bool gOutputFile::open(gPathstring const & path) {
  close();
  if (gTempFiles::text(path)) {
    path_ = path;
  } else {
    file_ = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
    if (file_ < 0)
      return false;
    if (!empty_file(file_)) {
      ::close(std::exchange(file_, -1));
      return false;
    }
  }
  open_ = true;
  if (!buffer_)
    buffer_ = std::make_unique_for_overwrite<char[]>(size);
  return true;
}

bool gOutputFile::close() {
  if (!open_)
    return true;
  pass_on({buffer_.get(), used_});
  if (file_ < 0)
    close_memory();
  else
    close_file();
  open_ = false;
  used_ = 0;
  errno = std::exchange(failure_, 0);
  return errno == 0;
}

void gOutputFile::fail() {
  if (failure_ == 0)
    failure_ = errno != 0 ? errno : EIO;
}

void gOutputFile::close_file() {
  if (::close(std::exchange(file_, -1)) != 0)
    fail();
}

void gOutputFile::close_memory() {
  // What a growing text took beyond its end would stay for the whole run.
  text_.shrink_to_fit();
  if (failure_ == 0 && !gTempFiles::keep(path_, std::exchange(text_, {})))
    fail();
}

void gOutputFile::flush_for(std::string_view text) {
  if (!open_)
    return;
  pass_on({buffer_.get(), used_});
  used_ = 0;
  if (text.size() > size)
    pass_on(text);
  else
    used_ = text.copy(buffer_.get(), text.size());
}

void gOutputFile::pass_on(std::string_view text) {
  if (file_ < 0 && failure_ == 0) {
    if (add_in_memory(text))
      return;
    move_to_disk();
  }
  write(text);
}

// False if there is no room, by the budget or in fact.
bool gOutputFile::add_in_memory(std::string_view text) {
  if (!gTempFiles::reserve(text.size()))
    return false;
  try {
    text_ += text;
    return true;
  } catch (std::bad_alloc const &) {
    gTempFiles::release(text.size());
    return false;
  }
}

void gOutputFile::move_to_disk() {
  file_ = gTempFiles::spill(path_);
  if (file_ < 0)
    fail();
  write(text_);
  gTempFiles::release(text_.size());
  text_ = {};
}

void gOutputFile::write(std::string_view text) {
  while (!text.empty() && failure_ == 0) {
    ssize_t const done = ::write(file_, text.data(), text.size());
    if (done >= 0)
      text.remove_prefix(static_cast<std::size_t>(done));
    else if (errno != EINTR)
      fail();
  }
}
