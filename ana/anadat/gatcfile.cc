// A failed write is remembered, and looked at once, behind the last one.
#include "ana/anadat/gatcfile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "ana/anadat/tables.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {
constexpr std::size_t buffer_size = 1 << 18;
} // namespace

gFileBuffer::gFileBuffer() : buffer_(std::make_unique<char[]>(buffer_size)) {
  setp(buffer_.get(), buffer_.get() + buffer_size);
}

gFileBuffer::~gFileBuffer() {
  if (file_ >= 0) {
    flush();
    ::close(file_);
  }
}

// A file that is cut to nothing goes to the disk at each close on some file systems, which is slow
// where thousands of sections share a file; so it is cut behind its new text.
bool gFileBuffer::open(gPathstring const & path) {
  file_ = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
  return file_ >= 0;
}

bool gFileBuffer::close() {
  bool done = flush();
  struct stat info;
  off_t const size = ::lseek(file_, 0, SEEK_CUR); // -1 where the file is none that has an end
  if (done && size >= 0 && ::fstat(file_, &info) == 0 && S_ISREG(info.st_mode) &&
      info.st_size > size)
    done = ::ftruncate(file_, size) == 0;
  return ::close(std::exchange(file_, -1)) == 0 && done;
}

bool gFileBuffer::write(char const * text, std::size_t size) {
  while (!failed_ && size > 0) {
    ssize_t const count = ::write(file_, text, size);
    if (count < 0 && errno == EINTR)
      continue;
    failed_ = count <= 0;
    if (failed_)
      break;
    text += count;
    size -= static_cast<std::size_t>(count);
  }
  return !failed_;
}

bool gFileBuffer::flush() {
  auto const size = static_cast<std::size_t>(pptr() - pbase());
  setp(buffer_.get(), buffer_.get() + buffer_size);
  return write(buffer_.get(), size);
}

gFileBuffer::int_type gFileBuffer::overflow(int_type c) {
  if (!flush())
    return traits_type::eof();
  if (!traits_type::eq_int_type(c, traits_type::eof())) {
    *pptr() = traits_type::to_char_type(c);
    pbump(1);
  }
  return traits_type::not_eof(c);
}

std::streamsize gFileBuffer::xsputn(char const * text, std::streamsize size) {
  if (size > epptr() - pptr() && !flush())
    return 0;
  if (size > epptr() - pptr())
    return write(text, static_cast<std::size_t>(size)) ? size : 0;
  std::memcpy(pptr(), text, static_cast<std::size_t>(size));
  pbump(static_cast<int>(size));
  return size;
}

gAtcFile::gAtcFile(gPathstring const & path) : path_(path), open_(buffer_.open(path)) {
  if (!open_)
    Msg::log(Msg::cannot_write, path_);
}

bool gAtcFile::close() {
  if (!open_)
    return false;
  open_ = false;
  if (buffer_.close() && stream_.good())
    return true;
  gDocManager.set_write_failed();
  Msg::log(Msg::cannot_write, path_);
  return false;
}
