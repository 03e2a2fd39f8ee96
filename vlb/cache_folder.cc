// An entry begins with a sum of its bytes and of the form. Two processes may write the same one:
// the last rename stays, and a reader has the old bytes or the new ones.
#include "vlb/cache_folder.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "vlb/content_hash.h"
#include "vlb/file_state.h"
#include "vlb/folder.h"
#include "vlb/gfilesystem.h"

namespace {

constexpr std::string_view mark = "vellumar cache ";

gPathstring user_folder() {
  char const * const caches = std::getenv("XDG_CACHE_HOME");
  gPathstring folder(caches ? caches : "");
  if (!folder.is_absolute()) {
    char const * const home = std::getenv("HOME");
    folder = gPathstring(home ? home : "");
    if (!folder.is_absolute())
      return {};
    folder.append(".cache");
  }
  return folder.append("vellumar");
}

} // namespace

gCacheFolder::gCacheFolder(std::string const & name, std::string form, std::uint64_t limit)
    : folder_(user_folder()),
      form_(std::move(form)),
      limit_(limit) {
  if (!folder_.empty())
    folder_.append(name);
}

std::string gCacheFolder::sealed(std::string_view bytes) const {
  std::string entry(mark);
  entry += Vlb::content_hash(bytes, Vlb::content_hash(form_)).text();
  entry += '\n';
  return entry.append(bytes);
}

std::optional<std::string> gCacheFolder::read(std::string const & entry) const {
  std::string text;
  std::size_t const head = sealed("").size();
  if (folder_.empty() || !gFileSystem::read_file(gPathstring(folder_).append(entry), text) ||
      text.size() < head || text != sealed(std::string_view(text).substr(head)))
    return {};
  return text.substr(head);
}

void gCacheFolder::write(std::string const & entry, std::string_view bytes) const {
  if (folder_.empty() || !gFileSystem::mk_dirs(folder_))
    return;
  gFileSystem::write_file_atomic(gPathstring(folder_).append(entry), sealed(bytes));
  remove_oldest();
}

void gCacheFolder::remove_oldest() const {
  struct gEntry {
    std::int64_t written;
    std::string path;
    std::uint64_t size;
  };
  std::vector<gEntry> entries;
  std::uint64_t all = 0;
  for (Vlb::FolderEntry const & one : Vlb::list_folder(folder_)) {
    std::string const path = gPathstring(folder_).append(one.name);
    gFileState const state = gFileState::of_link(path);
    entries.push_back({state.written, path, state.size});
    all += state.size;
  }
  std::ranges::sort(entries, {}, &gEntry::written);
  std::error_code error;
  for (gEntry const & one : entries) {
    if (all <= limit_)
      return;
    all -= one.size;
    std::filesystem::remove(one.path.c_str(), error);
  }
}
