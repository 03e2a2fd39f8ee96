// One source in memory, found again as long as its size and time stay.
#include "ana/anadat/gcitedfile.h"

#include <algorithm>

#include "vlb/gfilesystem.h"
#include "vlb/source_bytes.h"

gCitedFile::gCitedFile(std::string && text) : text_(std::move(text)) {
  Vlb::make_source_text(text_);
  starts_.push_back(0);
  for (std::size_t at = text_.find('\n'); at != text_.npos; at = text_.find('\n', at + 1))
    starts_.push_back(at + 1);
}

std::size_t gCitedFile::start_of(int line) const {
  std::size_t const index = static_cast<std::size_t>(std::max(line, 1)) - 1;
  return index < starts_.size() ? starts_[index] : text_.size();
}

bool gCitedFile::has_line(int line) const {
  return start_of(line) < text_.size();
}

std::string_view gCitedFile::lines(int first, int last) const {
  std::size_t const from = start_of(first);
  std::size_t const to = std::max(from, start_of(last + 1));
  return std::string_view(text_).substr(from, to - from);
}

gCitedFile const * gCitedFileCache::open(gPathstring const & path) {
  std::error_code error;
  auto const time = std::filesystem::last_write_time(path.c_str(), error);
  auto const size = error ? 0 : std::filesystem::file_size(path.c_str(), error);
  if (!error && !file_.empty() && path == path_ && time == time_ && size == size_)
    return &file_.front();
  file_.clear();
  std::string text;
  if (error || !gFileSystem::read_file(path, text))
    return nullptr;
  path_ = path;
  time_ = time;
  size_ = size;
  file_.emplace_back(std::move(text));
  return &file_.front();
}

void gCitedFileCache::reset() {
  file_.clear();
  file_.shrink_to_fit();
}
