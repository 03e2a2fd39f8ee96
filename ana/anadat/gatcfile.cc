// The stream's state is looked at once, behind the last write.
#include "ana/anadat/gatcfile.h"

#include <sys/stat.h>
#include <unistd.h>

#include "ana/anadat/tables.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {
constexpr std::size_t buffer_size = 1 << 18;

// True if the file ends there, or is none that has an end.
bool cut(gPathstring const & path, std::streamoff size) {
  struct stat info;
  return ::stat(path.c_str(), &info) == 0 &&
         (!S_ISREG(info.st_mode) || info.st_size <= size || ::truncate(path.c_str(), size) == 0);
}

} // namespace

gAtcFile::gAtcFile(gPathstring const & path)
    : path_(path),
      buffer_(std::make_unique<char[]>(buffer_size)) {
  stream_.rdbuf()->pubsetbuf(buffer_.get(), buffer_size);
  // A file that is cut to nothing goes to the disk at each close on some file systems, which is
  // slow where thousands of sections share a file; so it is cut behind its new text.
  stream_.open(path_.c_str(), std::ios::binary | std::ios::in | std::ios::out);
  if (!stream_.is_open())
    stream_.open(path_.c_str(), std::ios::binary | std::ios::trunc);
  open_ = stream_.is_open();
  if (!open_)
    Msg::log(Msg::cannot_write, path_);
}

bool gAtcFile::close() {
  if (!open_)
    return false;
  open_ = false;
  std::streamoff const size = stream_.tellp();
  stream_.close();
  if (stream_.good() && cut(path_, size))
    return true;
  gDocManager.set_write_failed();
  Msg::log(Msg::cannot_write, path_);
  return false;
}
