// The stream's state is looked at once, behind the last write.
#include "ana/anadat/gatcfile.h"

#include "ana/anadat/tables.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {
constexpr std::size_t buffer_size = 1 << 18;
}

gAtcFile::gAtcFile(gPathstring const & path)
    : path_(path),
      buffer_(std::make_unique<char[]>(buffer_size)) {
  stream_.rdbuf()->pubsetbuf(buffer_.get(), buffer_size);
  stream_.open(path_.c_str(), std::ios::binary | std::ios::trunc);
  open_ = stream_.is_open();
  if (!open_)
    Msg::log(Msg::cannot_write, path_);
}

bool gAtcFile::close() {
  if (!open_)
    return false;
  open_ = false;
  stream_.close();
  if (stream_.good())
    return true;
  gDocManager.set_write_failed();
  Msg::log(Msg::cannot_write, path_);
  return false;
}
